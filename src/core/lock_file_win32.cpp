#include "core/lock_file.h"

#include <windows.h>

namespace quillmark {

LockFile::LockFile(const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    // Shared with nobody: a second open fails for as long as the first handle lives.
    const HANDLE handle =
        ::CreateFileW(file.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                      FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        handle_ = reinterpret_cast<std::intptr_t>(handle);
    } else {
        taken_ = ::GetLastError() == ERROR_SHARING_VIOLATION;
    }
}

LockFile::~LockFile() {
    if (isOwned()) {
        ::CloseHandle(reinterpret_cast<HANDLE>(handle_));
    }
}

}  // namespace quillmark
