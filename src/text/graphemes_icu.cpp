#include "text/graphemes.h"

#include <unicode/ubrk.h>
#include <unicode/utext.h>

#include <memory>

#include "text/utf8.h"

namespace quillmark::platform {

std::size_t behindCharacters(std::string_view text, std::size_t count) {
    if (text.size() <= count || isAscii(text.substr(0, count + 1))) {
        return text.size() <= count ? text.size() : count;
    }
    UErrorCode error = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUTF8(&source, text.data(), static_cast<std::int64_t>(text.size()), &error);
    const std::unique_ptr<UText, decltype(&utext_close)> closed(&source, &utext_close);
    const std::unique_ptr<UBreakIterator, decltype(&ubrk_close)> breaks(
        ubrk_open(UBRK_CHARACTER, "", nullptr, 0, &error), &ubrk_close);
    ubrk_setUText(breaks.get(), &source, &error);
    if (U_FAILURE(error) != 0) {
        return text.size();
    }
    std::int32_t position = 0;
    for (std::size_t i = 0; i < count && position != UBRK_DONE; ++i) {
        position = ubrk_next(breaks.get());
    }
    return position == UBRK_DONE ? text.size() : static_cast<std::size_t>(position);
}

}  // namespace quillmark::platform
