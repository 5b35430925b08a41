// Any bytes open as a TYP file, and whatever document comes of them can be shown as text.
#include "typ/reader.h"
#include "text/generator.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace quillmark;
    const OpenedTyp opened = ouvrir({data, size}, Traduction());
    (void)genererTexte(opened.document, {}, nullptr);
    return 0;
}
