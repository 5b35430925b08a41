// Reads the file of backups back, one block at a time: it may be far larger than a text.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillmark {

struct BackupPlace {
    std::string title;        // the line between the stars
    std::uint64_t start = 0;  // of the body, in bytes
    std::uint64_t end = 0;
};

// The blocks in the order of the file; what stands before the first header is no block. A block
// that a crash cut short ends with the file. Throws Failure.
[[nodiscard]] std::vector<BackupPlace> listBackups(const std::filesystem::path& file);
// The body; shorter when the file was cut since. Throws Failure.
[[nodiscard]] std::string readBackup(const std::filesystem::path& file, const BackupPlace& place);

}  // namespace quillmark
