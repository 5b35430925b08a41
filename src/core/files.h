// Whole files in and out. Paths are UTF-8 in `std::filesystem::path`.
#pragma once

#include <filesystem>
#include <string>

#include "core/bytes.h"

namespace quillmark {

// Positions in these files are 32-bit signed numbers.
inline constexpr std::size_t kLargestFile = 0x7FFFFFFF;

// Throws Failure (53 missing, 70 permission, 76 path, 57 device, 6 above `kLargestFile`).
[[nodiscard]] Bytes readFile(const std::filesystem::path& file);

// Writes a new file beside `file` and lets it take its name in one step, so that a
// failure leaves the old file as it was. Keeps the permissions of an old file. Follows a link to
// the file it names. Where a file may be written but nothing may take its name, it is written
// over, with a copy under its name with "~" until it is whole.
// Throws Failure (61 disk full, 70 permission, 76 path, 57 device).
void replaceFile(const std::filesystem::path& file, ByteView content);

// True when `replaceFile` can be expected to work: the file isn't read-only, nor held by another
// program where the platform knows that; for a new file its folder takes one.
[[nodiscard]] bool isWritable(const std::filesystem::path& file);

}  // namespace quillmark
