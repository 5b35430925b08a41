#include "languages/source_texts.h"

#include <algorithm>
#include <array>

#include "core/files.h"
#include "core/paths.h"
#include "languages/literals.h"

namespace quillmark::languages {
namespace {

using Argument = std::vector<Token>;

// Where texts are handed on as they came; all else would hide texts from this collection.
constexpr std::array<std::string_view, 3> kForwarders{"core/translation.cpp", "typ/read_context.h",
                                                      "text/generator_parts.cpp"};

// The arguments behind the bracket at `open`, in tokens.
std::vector<Argument> argumentsOf(const std::vector<Token>& tokens, std::size_t open) {
    std::vector<Argument> arguments(1);
    int depth = 0;
    for (std::size_t i = open; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        const bool sign = token.kind == TokenKind::other;
        if (sign && (token.text == "(" || token.text == "{" || token.text == "[")) {
            if (depth++ == 0) {
                continue;
            }
        } else if (sign && (token.text == ")" || token.text == "}" || token.text == "]")) {
            if (--depth == 0) {
                return arguments;
            }
        } else if (sign && token.text == "," && depth == 1) {
            arguments.emplace_back();
            continue;
        }
        arguments.back().push_back(token);
    }
    return {};
}

bool isLiteral(const Argument& argument) {
    return !argument.empty() && std::all_of(argument.begin(), argument.end(), [](const Token& t) {
        return t.kind == TokenKind::literal;
    });
}

std::string joined(const Argument& argument) {
    std::string text;
    for (const Token& token : argument) {
        text += token.text;
    }
    return text;
}

bool isDeclaration(const std::vector<Argument>& arguments) {
    return arguments.size() >= 3 && joined(arguments.back()) == "std::string_viewcle";
}

bool isForwarded(const std::vector<Argument>& arguments, const std::string& file) {
    return joined(arguments.back()) == "cle" &&
           std::find(kForwarders.begin(), kForwarders.end(), file) != kForwarders.end();
}

// How many arguments stand before the section; -1 when this isn't a call for a text.
int argumentsBefore(const std::vector<Token>& tokens, std::size_t i) {
    if (tokens[i].kind != TokenKind::name || i + 1 >= tokens.size() || tokens[i + 1].text != "(" ||
        tokens[i + 1].kind != TokenKind::other) {
        return -1;
    }
    if (tokens[i].text == "Trad") {
        return 0;
    }
    // Members of this name move pictures.
    const bool member = i > 0 && (tokens[i - 1].text == "." || tokens[i - 1].text == ">");
    return tokens[i].text == "translate" && !member ? 1 : -1;
}

}  // namespace

void collectTexts(std::string_view code, const std::string& file, SourceTexts& found) {
    const std::vector<Token> tokens = tokensOf(code);
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const int before = argumentsBefore(tokens, i);
        if (before < 0) {
            continue;
        }
        const std::string place = file + ":" + std::to_string(tokens[i].line);
        const std::vector<Argument> arguments = argumentsOf(tokens, i + 1);
        const auto first = static_cast<std::size_t>(before);
        if (arguments.size() == first + 3 &&
            std::all_of(arguments.begin() + before, arguments.end(), isLiteral)) {
            found.texts.push_back({joined(arguments[first]), joined(arguments[first + 1]),
                                   joined(arguments[first + 2]), place});
        } else if (arguments.empty() ||
                   (!isDeclaration(arguments) && !isForwarded(arguments, file))) {
            found.faults.push_back(place + ": section, default and key must be string literals");
        }
    }
}

SourceTexts collectTexts(const std::filesystem::path& sources) {
    SourceTexts found;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(sources)) {
        if (entry.path().extension() == ".cpp" || entry.path().extension() == ".h") {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
        const Bytes bytes = readFile(file);
        collectTexts({reinterpret_cast<const char*>(bytes.data()), bytes.size()},
                     utf8FromPath(file.lexically_relative(sources)), found);
    }
    return found;
}

}  // namespace quillmark::languages
