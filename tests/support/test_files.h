// Folders that tests read from, and a folder of their own that is gone after the test.
#pragma once

#include <sys/resource.h>

#include <filesystem>
#include <vector>

#include "core/bytes.h"

namespace quillmark::testing {

// Files of the corpus subfolder ("bin" or "txt"), sorted; empty when there is no corpus.
std::vector<std::filesystem::path> corpusFiles(const std::string& subfolder);

// The `data` folder of the source tree.
std::filesystem::path dataFolder();

class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    [[nodiscard]] const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

std::size_t fileCount(const std::filesystem::path& folder);

// A device that fails after so many bytes: larger files can't be written while this lives.
class FullDevice {
  public:
    explicit FullDevice(rlim_t bytes);
    ~FullDevice();
    FullDevice(const FullDevice&) = delete;
    FullDevice& operator=(const FullDevice&) = delete;

  private:
    rlimit limit_{};
    void (*signal_)(int);
};

// Writes bytes without the care of the product's own writer, which is under test itself.
void writePlain(const std::filesystem::path& file, ByteView content);
Bytes bytesOf(std::string_view text);
// Bytes from hexadecimal pairs separated by blanks.
Bytes hex(std::string_view pairs);

}  // namespace quillmark::testing
