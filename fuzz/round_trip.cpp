// What was written once is read and written again as the same bytes.
#include <cstdio>
#include <cstdlib>

#include "typ/reader.h"
#include "typ/writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quillmark;
    Bytes first;
    try {
        first = CreerTYP(ouvrir({data, size}, Traduction()).document, DateTime{}).file;
    } catch (const Failure&) {
        return 0;  // damaged so that no file can hold it
    }
    const Bytes second = CreerTYP(ouvrir(first, Traduction()).document, DateTime{}).file;
    if (second != first) {
        std::fputs("the second write differs from the first\n", stderr);
        std::abort();
    }
    return 0;
}
