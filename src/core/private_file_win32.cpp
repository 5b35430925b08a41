#include "core/private_file.h"

#include <windows.h>

#include <algorithm>

#include "core/paths.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kLargestStep = 1U << 24U;

[[noreturn]] void failByCode(DWORD error, const fs::path& file) {
    switch (error) {
        case ERROR_PATH_NOT_FOUND:
        case ERROR_FILE_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_DIRECTORY:
            failOnFile(ErrorNumber::path, utf8FromPath(file));
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_WRITE_PROTECT:
            failOnFile(ErrorNumber::permission, utf8FromPath(file));
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            failOnFile(ErrorNumber::diskFull, utf8FromPath(file));
        default:
            failOnFile(ErrorNumber::device, utf8FromPath(file));
    }
}

class Handle {
  public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    ~Handle() {
        if (handle_ != INVALID_HANDLE_VALUE) {
            ::CloseHandle(handle_);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    [[nodiscard]] HANDLE get() const { return handle_; }

  private:
    HANDLE handle_;
};

bool seek(HANDLE handle, LONGLONG position) {
    LARGE_INTEGER place{};
    place.QuadPart = position;
    return ::SetFilePointerEx(handle, place, nullptr, FILE_BEGIN) != 0;
}

}  // namespace

// Folders of application data are closed to other users by what they inherit.
void writeOverEnd(const fs::path& file, std::size_t overlap, ByteView content) {
    const Handle out(::CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                   OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER length{};
    if (out.get() == INVALID_HANDLE_VALUE || ::GetFileSizeEx(out.get(), &length) == 0 ||
        !seek(out.get(), std::max<LONGLONG>(length.QuadPart - static_cast<LONGLONG>(overlap), 0))) {
        failByCode(::GetLastError(), file);
    }
    while (!content.empty()) {
        const auto step = static_cast<DWORD>(std::min<std::size_t>(content.size(), kLargestStep));
        DWORD count = 0;
        if (::WriteFile(out.get(), content.data(), step, &count, nullptr) == 0 || count == 0) {
            const DWORD error = ::GetLastError();
            if (seek(out.get(), length.QuadPart)) {
                ::SetEndOfFile(out.get());
            }
            failByCode(error, file);
        }
        content = content.subspan(count);
    }
}

}  // namespace quillmark
