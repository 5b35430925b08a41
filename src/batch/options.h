// The command line, read into values. Nothing here touches files.
#pragma once

#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "views/sheet_texts.h"

namespace quillmark {

// "-" in place of a file name: standard input or standard output.
inline constexpr const char* kStandardStream = "-";

enum class Command { text, typ, icons, check, info, help, version };

struct BatchOptions {
    Command command = Command::help;
    std::vector<std::string> inputs;  // one for `text`, `typ` and `icons`
    std::string output;               // of these
    std::string language;             // name of a language file, empty for built-in French

    bool utf8 = false;              // the text in UTF-8 instead of the document's code page
    bool longPoiCode = true;        // type and subtype of a point on two lines
    bool trueColours = true;        // pixels of pictures without palette
    bool headerComments = true;     // where the text comes from, in comment lines
    std::optional<int> headerSize;  // bytes
    std::optional<int> fid;
    std::optional<int> productCode;
    std::optional<int> codePage;

    ObjectKind kind = ObjectKind::none;  // of the icon sheet; none: the first with objects
    bool night = false;
    int zoom = 1;
    LabelMode labels = LabelMode::none;
    int labelLanguage = 1;
};

struct WrongUsage {
    std::string message;  // English, without line end
};

// `arguments` without the name of the program.
[[nodiscard]] std::variant<BatchOptions, WrongUsage> parseOptions(
    const std::vector<std::string>& arguments);

}  // namespace quillmark
