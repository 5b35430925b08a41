// A growing file that only its owner may read.
#pragma once

#include <cstddef>
#include <filesystem>

#include "core/bytes.h"

namespace quillmark {

// Writes over the last `overlap` bytes of the file and on behind them. Makes the file when it is
// missing. A failure, which is thrown, leaves the file as long as it was.
void writeOverEnd(const std::filesystem::path& file, std::size_t overlap, ByteView content);

}  // namespace quillmark
