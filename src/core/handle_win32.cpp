#include "core/handle_win32.h"

#include <algorithm>

#include "core/paths.h"

namespace quillmark {

namespace fs = std::filesystem;

// A quota on the volume is used up; not every set of system headers names it.
constexpr DWORD kDiskQuotaExceeded = 1295;

void failByCode(DWORD error, const fs::path& file, ErrorNumber whenMissing) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            failOnFile(whenMissing, utf8FromPath(file));
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_BAD_NETPATH:
        case ERROR_DIRECTORY:
        case ERROR_FILENAME_EXCED_RANGE:
            failOnFile(ErrorNumber::path, utf8FromPath(file));
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
        case ERROR_USER_MAPPED_FILE:
            failOnFile(ErrorNumber::permission, utf8FromPath(file));
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case kDiskQuotaExceeded:
        case ERROR_FILE_TOO_LARGE:
            failOnFile(ErrorNumber::diskFull, utf8FromPath(file));
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY:
            failOnFile(ErrorNumber::memory, utf8FromPath(file));
        default:
            failOnFile(ErrorNumber::device, utf8FromPath(file));
    }
}

void writeAll(HANDLE handle, ByteView content, const fs::path& file) {
    while (!content.empty()) {
        const auto step = static_cast<DWORD>(std::min<std::size_t>(content.size(), kLargestStep));
        DWORD count = 0;
        if (::WriteFile(handle, content.data(), step, &count, nullptr) == 0) {
            failByCode(::GetLastError(), file);
        }
        if (count == 0) {
            failOnFile(ErrorNumber::device, utf8FromPath(file));
        }
        content = content.subspan(count);
    }
}

}  // namespace quillmark
