// What the platform knows of code pages. One source file for each platform.
#pragma once

#include <cstddef>
#include <string>

#include "core/bytes.h"

namespace quillmark::platform {

// True for pages whose text can end in a zero byte: stateful pages and UTF-16 and UTF-32 aren't.
[[nodiscard]] bool hasCodePage(int codePage);
// Most bytes that one character takes, 0 for an unknown page.
[[nodiscard]] int maxBytesPerCharacter(int codePage);
// Malformed and undefined sequences become U+FFFD. An unknown page yields an empty text.
[[nodiscard]] std::u16string toUtf16(ByteView bytes, int codePage);
// Characters that the page lacks become "?" and are counted in `lost`. No best-fit.
[[nodiscard]] Bytes fromUtf16(const std::u16string& text, int codePage, std::size_t& lost);
// The page of the system's own 8-bit text.
[[nodiscard]] int systemCodePage();

}  // namespace quillmark::platform
