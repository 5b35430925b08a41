#include "support/test_files.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

namespace quillmark::testing {

namespace fs = std::filesystem;

std::vector<fs::path> corpusFiles(const std::string& subfolder) {
    std::string root = QUILLMARK_CORPUS_FOLDER;
    if (const char* fromEnvironment = std::getenv("QUILLMARK_CORPUS")) {
        root = fromEnvironment;
    }
    std::vector<fs::path> files;
    std::error_code ignored;
    if (root.empty() || !fs::is_directory(fs::path(root) / subfolder, ignored)) {
        return files;
    }
    for (const auto& entry : fs::directory_iterator(fs::path(root) / subfolder)) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

fs::path dataFolder() {
    return fs::path(QUILLMARK_SOURCE_FOLDER) / "data";
}

TemporaryFolder::TemporaryFolder() {
    std::random_device random;
    path_ = fs::temp_directory_path() / ("quillmark-test-" + std::to_string(random()));
    fs::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::size_t fileCount(const fs::path& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

FullDevice::FullDevice(rlim_t bytes) : signal_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &limit_);
    const rlimit small{bytes, limit_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
}

FullDevice::~FullDevice() {
    ::setrlimit(RLIMIT_FSIZE, &limit_);
    std::signal(SIGXFSZ, signal_);
}

void writePlain(const fs::path& file, ByteView content) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(reinterpret_cast<const char*>(content.data()),
                 static_cast<std::streamsize>(content.size()));
}

Bytes bytesOf(std::string_view text) {
    return {text.begin(), text.end()};
}

Bytes hex(std::string_view pairs) {
    std::istringstream stream{std::string(pairs)};
    Bytes bytes;
    unsigned value = 0;
    while (stream >> std::hex >> value) {
        bytes.push_back(static_cast<std::uint8_t>(value));
    }
    return bytes;
}

}  // namespace quillmark::testing
