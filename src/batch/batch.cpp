#include "batch/batch.h"

#include <cstdlib>
#include <ostream>

#include "batch/commands.h"
#include "batch/console.h"
#include "batch/options.h"
#include "batch/wording.h"
#include "core/folders.h"
#include "core/paths.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

// Where `MPCTypes.txt` and `Langues` are: beside the program, or where an installation puts them.
fs::path dataFolder() {
    if (const char* named = std::getenv("QUILLMARK_DATA"); named != nullptr && *named != '\0') {
        return pathFromUtf8(named);
    }
    return installedData();
}

ExitStatus runCommand(const BatchOptions& options, Console& console) {
    const fs::path data = dataFolder();
    if (!options.language.empty()) {
        if (options.language != kFrancais && !LangueExiste({data}, options.language)) {
            console.tell(options.language, JournalKind::warning, wording::kNoLanguage);
        }
        console.traduction = Traduction({data}, options.language);
    }
    switch (options.command) {
        case Command::text:
            return writeText(options, data, console);
        case Command::typ:
            return writeTyp(options, console);
        case Command::icons:
            return writeIcons(options, console);
        case Command::check:
            return check(options, console);
        case Command::info:
            return info(options, console);
        case Command::help:
            console.out() << wording::kHelp;
            break;
        case Command::version:
            console.out() << wording::kProgram << ' ' << QUILLMARK_VERSION << '\n';
            break;
    }
    return ExitStatus::fine;
}

}  // namespace

int runBatch(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
             std::ostream& err) {
    ExitStatus status = ExitStatus::usage;
    const auto options = parseOptions(arguments);
    if (const auto* wrong = std::get_if<WrongUsage>(&options)) {
        err << wording::kProgram << ": " << wrong->message << '\n' << wording::kTryHelp << '\n';
    } else {
        Console console(in, out, err);
        try {
            status = runCommand(std::get<BatchOptions>(options), console);
        } catch (const std::exception&) {
            status = ExitStatus::errors;
            err << wording::kProgram << ": " << currentErrorFacts().description << '\n';
        }
    }
    if (!out.flush() && status < ExitStatus::errors) {
        status = ExitStatus::errors;
        err << wording::kProgram << ": " << wording::kStreamFailed << '\n';
    }
    return static_cast<int>(status);
}

}  // namespace quillmark
