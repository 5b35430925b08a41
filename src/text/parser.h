// Turns the text form into records, exactly as a binary file would hold them.
#pragma once

#include <string_view>

#include "core/document.h"
#include "core/journal.h"
#include "core/translation.h"
#include "text/generator.h"

namespace quillmark {

// What the text stands for: the whole document, or one object that its first section replaces.
struct ParseTarget {
    ObjectKind ObjetVisualise = ObjectKind::none;  // none: the whole document
    int index = 0;
    int member = 0;    // of the Extra POI group `index`
    int codePage = 0;  // above 0: the page of the labels, whatever the text says of it
};

struct ParsedText {
    Document document;
    Journal journal;
    // Lines that belong to no key of the section they stand in, or to no section, from 1: dropped.
    // An edited text's lines outside of sections are told, others nowhere.
    std::vector<int> skippedLines;
    // Where the single object stands that the text was of, when its section was put in; else -1.
    int index = -1;
};

// `base` is the document the text is put into: a fresh one for a file; for an edit the document
// as it stands, whose objects whole-file text replaces (Extra POI groups and all that text has no
// place for stay). A record of `base` whose section in `text` is the same as `generated` has it
// is kept byte for byte, but for labels in another code page; `generated` may be null.
[[nodiscard]] ParsedText ouvrirtxt(std::string_view text, Document base, const ParseTarget& target,
                                   const GeneratedText* generated, const Traduction& traduction);

}  // namespace quillmark
