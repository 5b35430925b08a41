// Any bytes open as a text file, and whatever document comes of them can be written as TYP.
#include "session/open.h"
#include "typ/writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quillmark;
    OpenedFile opened = openBytes({data, size}, true, TextFileEncoding::automatic, Traduction());
    opened.document.TailleEntete = smallestHeader(opened.document);
    try {
        (void)CreerTYP(std::move(opened.document), DateTime{});
    } catch (const Failure&) {
        // Text may hold what the binary form can't.
    }
    return 0;
}
