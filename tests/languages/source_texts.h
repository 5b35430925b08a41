// The texts that the sources ask a language file for.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::languages {

struct SourceText {
    std::string section;
    std::string defaut;
    std::string cle;
    std::string place;  // "ui/frm_main.cpp:12"
};

struct SourceTexts {
    std::vector<SourceText> texts;
    // Calls whose texts can't be seen, one line each.
    std::vector<std::string> faults;
};

// Calls of `Trad(section, default, key)` and `translate(context, section, default, key)`, both with
// string literals. Functions that only hand the three on are known by name.
void collectTexts(std::string_view code, const std::string& file, SourceTexts& found);
// All .cpp and .h files below a folder.
SourceTexts collectTexts(const std::filesystem::path& sources);

}  // namespace quillmark::languages
