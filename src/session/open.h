// Opens a TYP or text file into a fresh document.
#pragma once

#include <filesystem>
#include <vector>

#include "core/document.h"
#include "core/journal.h"
#include "core/translation.h"
#include "text/code_pages.h"

namespace quillmark {

struct OpenedFile {
    Document document;
    Journal journal;
    bool OuvertEnTexte = false;
    bool utf8 = false;          // a text that was decoded as UTF-8
    bool hasMagic = true;       // false: a TYP file without its magic
    bool namesCodePage = true;  // false: a text that names no code page
    std::size_t fileSize = 0;   // bytes
    // Lines of a text that belong to no key of the section they stand in, from 1.
    std::vector<int> skippedLines;
};

// By the extension: ".txt" (in any case) is text, everything else TYP. Throws Failure when the
// file can't be read. A `codePage` other than 0 takes the place of the one that a text names, and
// decodes a text that names none and isn't UTF-8; a TYP file isn't touched by it.
[[nodiscard]] OpenedFile openFile(const std::filesystem::path& file, TextFileEncoding encoding,
                                  const Traduction& traduction, int codePage = 0);
// The same for bytes already at hand.
[[nodiscard]] OpenedFile openBytes(ByteView bytes, bool isText, TextFileEncoding encoding,
                                   const Traduction& traduction, int codePage = 0);

}  // namespace quillmark
