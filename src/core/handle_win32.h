// Open files of the platform, and what its calls fail with.
#pragma once

#include <windows.h>

#include <filesystem>
#include <utility>

#include "core/bytes.h"
#include "core/errors.h"

namespace quillmark {

// Files are read and written in steps of this many bytes at most.
inline constexpr DWORD kLargestStep = 1U << 24U;

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() { close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    [[nodiscard]] HANDLE get() const { return handle_; }
    [[nodiscard]] bool valid() const { return handle_ != INVALID_HANDLE_VALUE; }
    void close() {
        const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
        if (handle != INVALID_HANDLE_VALUE) {
            ::CloseHandle(handle);
        }
    }

  private:
    HANDLE handle_;
};

[[noreturn]] void failByCode(DWORD error, const std::filesystem::path& file,
                             ErrorNumber whenMissing = ErrorNumber::path);

// Throws a Failure that names `file`.
void writeAll(HANDLE handle, ByteView content, const std::filesystem::path& file);

}  // namespace quillmark
