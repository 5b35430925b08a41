// Shorthand for tests of the text form.
#pragma once

#include <string>

#include "text/generator.h"
#include "text/parser.h"

namespace quillmark::testing {

inline ParsedText parseText(std::string_view text, Document base = {},
                            const ParseTarget& target = {},
                            const GeneratedText* generated = nullptr) {
    return ouvrirtxt(text, std::move(base), target, generated, Traduction());
}

inline GeneratedText generate(const Document& document, TextSettings settings = {}) {
    return genererTexte(document, GeneratorContext{settings, nullptr, nullptr}, nullptr);
}

// The one polygon, line or point of a section's inner lines.
inline Polygone polygonOf(const std::string& lines, Journal* journal = nullptr) {
    ParsedText parsed = parseText("[_polygon]\nType=0x01\n" + lines + "\n[end]\n");
    if (journal != nullptr) {
        *journal = parsed.journal;
    }
    return parsed.document.Polygone.at(0);
}
inline Polyline lineOf(const std::string& lines, Journal* journal = nullptr) {
    ParsedText parsed = parseText("[_line]\nType=0x01\n" + lines + "\n[end]\n");
    if (journal != nullptr) {
        *journal = parsed.journal;
    }
    return parsed.document.Polyline.at(0);
}
inline POI pointOf(const std::string& lines, Journal* journal = nullptr) {
    ParsedText parsed = parseText("[_point]\nType=0x02a\n" + lines + "\n[end]\n");
    if (journal != nullptr) {
        *journal = parsed.journal;
    }
    return parsed.document.POI.at(0);
}

}  // namespace quillmark::testing
