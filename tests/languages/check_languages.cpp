// Holds the language files against the sources: check_languages SOURCES LANGUAGES
#include <cstdlib>
#include <iostream>

#include "core/files.h"
#include "core/paths.h"
#include "languages/language_file.h"

namespace {

using namespace quillmark;

constexpr const char* kLanguages[] = {"Deutsch",  "English",    "Español",
                                      "Italiano", "Nederlands", "Polski"};

std::size_t report(const std::string& name, const std::vector<std::string>& faults) {
    for (const std::string& fault : faults) {
        std::cout << name << ": " << fault << '\n';
    }
    return faults.size();
}

std::size_t check(const std::string& language, const std::filesystem::path& folder,
                  const std::vector<languages::SourceText>& texts) {
    const Bytes bytes = readFile(folder / pathFromUtf8(language + ".lng"));
    const std::string_view content{reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    const auto lacking = languages::lackingTexts(content, texts);
    for (const auto& text : lacking) {
        std::cout << language << ": lacks [" << text.section << "] " << text.cle << "="
                  << text.defaut << "    (" << text.place << ")\n";
    }
    return lacking.size() + report(language, languages::faultsOf(content, texts));
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: check_languages SOURCES LANGUAGES\n";
        return EXIT_FAILURE;
    }
    const auto found = languages::collectTexts(std::filesystem::path(argv[1]));
    std::size_t faults = report("sources", found.faults);
    faults += report("sources", languages::faultsOf(found.texts));
    for (const char* language : kLanguages) {
        faults += check(language, pathFromUtf8(argv[2]), found.texts);
    }
    std::cout << found.texts.size() << " calls for texts, " << faults << " faults\n";
    return faults == 0 && !found.texts.empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
