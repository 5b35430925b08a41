#include "core/files.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace quillmark {
namespace {

namespace fs = std::filesystem;

// A quota on the volume is used up; not every set of system headers names it.
constexpr DWORD kDiskQuotaExceeded = 1295;
constexpr DWORD kLargestStep = 1U << 24U;

std::string utf8(const fs::path& file) {
    const auto text = file.u8string();
    return {text.begin(), text.end()};
}

[[noreturn]] void fail(ErrorNumber number, const fs::path& file) {
    failOnFile(number, utf8(file));
}

[[noreturn]] void failByCode(DWORD error, const fs::path& file, ErrorNumber whenMissing) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
            fail(whenMissing, file);
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_BAD_NETPATH:
        case ERROR_DIRECTORY:
        case ERROR_FILENAME_EXCED_RANGE:
            fail(ErrorNumber::path, file);
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
        case ERROR_USER_MAPPED_FILE:
            fail(ErrorNumber::permission, file);
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
        case kDiskQuotaExceeded:
        case ERROR_FILE_TOO_LARGE:
            fail(ErrorNumber::diskFull, file);
        case ERROR_NOT_ENOUGH_MEMORY:
        case ERROR_OUTOFMEMORY:
            fail(ErrorNumber::memory, file);
        default:
            fail(ErrorNumber::device, file);
    }
}

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

// The file that is meant when `file` is a link; an absent file is its own name.
fs::path followed(const fs::path& file) {
    std::error_code failed;
    fs::path target = fs::canonical(file, failed);
    return failed ? file : target;
}

fs::path temporaryName(const fs::path& target, int attempt) {
    return target.parent_path() / (L".quillmark-" + std::to_wstring(::GetCurrentProcessId()) +
                                   L'-' + std::to_wstring(attempt));
}

// Opens a new file beside `target` and sets `path` to its name.
HANDLE createBeside(const fs::path& target, DWORD flags, fs::path& path) {
    for (int attempt = 0; attempt < 1000; ++attempt) {
        path = temporaryName(target, attempt);
        const HANDLE handle = ::CreateFileW(path.c_str(), GENERIC_WRITE | DELETE, 0, nullptr,
                                            CREATE_NEW, flags, nullptr);
        if (handle != INVALID_HANDLE_VALUE || ::GetLastError() != ERROR_FILE_EXISTS) {
            return handle;
        }
    }
    ::SetLastError(ERROR_ACCESS_DENIED);
    return INVALID_HANDLE_VALUE;
}

void writeAll(HANDLE handle, ByteView content, const fs::path& target) {
    while (!content.empty()) {
        const auto step = static_cast<DWORD>(std::min<std::size_t>(content.size(), kLargestStep));
        DWORD count = 0;
        if (::WriteFile(handle, content.data(), step, &count, nullptr) == 0) {
            failByCode(::GetLastError(), target, ErrorNumber::path);
        }
        if (count == 0) {
            fail(ErrorNumber::device, target);
        }
        content = content.subspan(count);
    }
}

// A new file that is gone again unless it takes the name of another.
class TemporaryFile {
  public:
    TemporaryFile(HANDLE handle, fs::path path) : handle_(handle), path_(std::move(path)) {}
    ~TemporaryFile() {
        if (!path_.empty()) {
            handle_.close();  // an open file can't be removed
            ::DeleteFileW(path_.c_str());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] HANDLE handle() const { return handle_.get(); }

    // Closes the file. Access rights and attributes of an old file stay with the name.
    void rename(const fs::path& target) {
        handle_.close();
        const bool exists = ::GetFileAttributesW(target.c_str()) != INVALID_FILE_ATTRIBUTES;
        const DWORD keep = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
        if (exists &&
            ::ReplaceFileW(target.c_str(), path_.c_str(), nullptr, keep, nullptr, nullptr) != 0) {
            path_.clear();
            return;
        }
        // Also where file systems know no replacement, and where one stopped between its steps.
        if (::MoveFileExW(path_.c_str(), target.c_str(),
                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
            path_.clear();
            return;
        }
        const DWORD error = ::GetLastError();
        if (exists && ::GetFileAttributesW(target.c_str()) == INVALID_FILE_ATTRIBUTES) {
            // The old file is gone already: the new content is all the user has.
            fail(ErrorNumber::device, std::exchange(path_, {}));
        }
        failByCode(error, target, ErrorNumber::path);
    }

  private:
    Handle handle_;
    fs::path path_;
};

}  // namespace

Bytes readFile(const fs::path& file) {
    const Handle in(::CreateFileW(file.c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    if (!in.valid()) {
        failByCode(::GetLastError(), file, ErrorNumber::fileMissing);
    }
    // The size is a hint only: pipes have none, and a file can grow meanwhile.
    LARGE_INTEGER size{};
    const bool known = ::GetFileSizeEx(in.get(), &size) != 0;
    if (known && size.QuadPart > static_cast<LONGLONG>(kLargestFile)) {
        fail(ErrorNumber::overflow, file);
    }
    Bytes content((known ? static_cast<std::size_t>(size.QuadPart) : 0) + 1);
    for (std::size_t used = 0;;) {
        const auto room =
            static_cast<DWORD>(std::min<std::size_t>(content.size() - used, kLargestStep));
        DWORD count = 0;
        if (::ReadFile(in.get(), content.data() + used, room, &count, nullptr) == 0) {
            const DWORD error = ::GetLastError();
            if (error != ERROR_BROKEN_PIPE) {
                failByCode(error, file, ErrorNumber::fileMissing);
            }
            count = 0;
        }
        used += count;
        if (count == 0) {
            content.resize(used);
            return content;
        }
        if (used > kLargestFile) {
            fail(ErrorNumber::overflow, file);
        }
        if (used == content.size()) {
            content.resize(std::max<std::size_t>(used * 2, 65536));
        }
    }
}

void replaceFile(const fs::path& link, ByteView content) {
    const fs::path target = followed(link);
    const DWORD attributes = ::GetFileAttributesW(target.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            fail(ErrorNumber::path, target);
        }
        if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            fail(ErrorNumber::permission, target);
        }
    }
    fs::path name;
    const HANDLE handle = createBeside(target, FILE_ATTRIBUTE_NORMAL, name);
    if (handle == INVALID_HANDLE_VALUE) {
        failByCode(::GetLastError(), target, ErrorNumber::path);
    }
    TemporaryFile file(handle, std::move(name));
    writeAll(file.handle(), content, target);
    if (::FlushFileBuffers(file.handle()) == 0) {
        failByCode(::GetLastError(), target, ErrorNumber::path);
    }
    file.rename(target);
}

bool isWritable(const fs::path& link) {
    const fs::path target = followed(link);
    const DWORD attributes = ::GetFileAttributesW(target.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) {
            return false;
        }
        // Asking for the file alone fails while another program holds it.
        const Handle held(::CreateFileW(target.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0,
                                        nullptr, OPEN_EXISTING, 0, nullptr));
        if (!held.valid()) {
            return false;
        }
    }
    fs::path name;
    return Handle(createBeside(target, FILE_FLAG_DELETE_ON_CLOSE, name)).valid();
}

}  // namespace quillmark
