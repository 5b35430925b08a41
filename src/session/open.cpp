#include "session/open.h"

#include <string>
#include <string_view>

#include "core/files.h"
#include "core/paths.h"
#include "text/parser.h"
#include "typ/reader.h"

namespace quillmark {
namespace {

void openText(ByteView bytes, TextFileEncoding encoding, int codePage, const Traduction& traduction,
              OpenedFile& opened) {
    DecodedTextFile decoded = decodeTextFile(bytes, encoding);
    Document base;
    base.CodePage = codePageExists(decoded.CodePage) ? decoded.CodePage : 1252;
    if (codePage > 0 && !decoded.utf8 && !decoded.namesCodePage) {
        decoded.text = bytesToText(bytes, codePage);
        std::erase(decoded.text, '\0');
    }
    ParseTarget target;
    target.codePage = codePage;
    ParsedText parsed = ouvrirtxt(decoded.text, std::move(base), target, nullptr, traduction);
    opened.document = std::move(parsed.document);
    opened.journal = std::move(parsed.journal);
    if (decoded.malformed) {
        opened.journal.warning(traduction.Trad(
            "Main", "Le texte n'est pas entièrement en UTF-8: le reste est lu en 1252.",
            "msgTexteUtf8"));
    }
    opened.skippedLines = std::move(parsed.skippedLines);
    opened.OuvertEnTexte = true;
    opened.utf8 = decoded.utf8;
    opened.namesCodePage = decoded.namesCodePage;
}

}  // namespace

OpenedFile openBytes(ByteView bytes, bool isText, TextFileEncoding encoding,
                     const Traduction& traduction, int codePage) {
    OpenedFile opened;
    opened.fileSize = bytes.size();
    if (isText) {
        openText(bytes, encoding, codePage, traduction, opened);
    } else {
        OpenedTyp typ = ouvrir(bytes, traduction);
        opened.document = std::move(typ.document);
        opened.journal = std::move(typ.journal);
        opened.hasMagic = typ.hasMagic;
    }
    return opened;
}

OpenedFile openFile(const std::filesystem::path& file, TextFileEncoding encoding,
                    const Traduction& traduction, int codePage) {
    // Whoever names an encoding means a text, whatever its name.
    const bool isText = encoding != TextFileEncoding::automatic || hasExtension(file, ".txt");
    return openBytes(readFile(file), isText, encoding, traduction, codePage);
}

}  // namespace quillmark
