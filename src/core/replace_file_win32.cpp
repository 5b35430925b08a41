#include <utility>

#include "core/files.h"
#include "core/handle_win32.h"
#include "core/paths.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(ErrorNumber number, const fs::path& file) {
    failOnFile(number, utf8FromPath(file));
}

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
        failByCode(error, target);
    }

  private:
    Handle handle_;
    fs::path path_;
};

void overwrite(HANDLE handle, ByteView content, const fs::path& target) {
    if (::SetFilePointerEx(handle, LARGE_INTEGER{}, nullptr, FILE_BEGIN) == 0) {
        failByCode(::GetLastError(), target);
    }
    writeAll(handle, content, target);
    if (::SetEndOfFile(handle) == 0 || ::FlushFileBuffers(handle) == 0) {
        failByCode(::GetLastError(), target);
    }
}

// The content of a file under its name with "~", beside it or else in the folder for temporary
// files. Gone at the end unless it is all that is left.
class SafetyCopy {
  public:
    SafetyCopy(const fs::path& target, ByteView content) : handle_(create(target)) {
        try {
            overwrite(handle_.get(), content, path_);
        } catch (const Failure&) {
            drop();
            throw;
        }
    }
    ~SafetyCopy() {
        if (!kept_) {
            drop();
        }
    }
    SafetyCopy(const SafetyCopy&) = delete;
    SafetyCopy& operator=(const SafetyCopy&) = delete;
    [[nodiscard]] const fs::path& path() const { return path_; }
    void keep() { kept_ = true; }

  private:
    HANDLE create(const fs::path& target) {
        std::error_code none;
        for (const fs::path& folder : {target.parent_path(), fs::temp_directory_path(none)}) {
            path_ = folder / target.filename();
            for (int attempt = 0; attempt < 100; ++attempt) {
                path_ += L"~";
                const HANDLE handle = ::CreateFileW(path_.c_str(), GENERIC_WRITE, 0, nullptr,
                                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
                if (handle != INVALID_HANDLE_VALUE) {
                    return handle;
                }
                if (::GetLastError() != ERROR_FILE_EXISTS) {
                    break;
                }
            }
        }
        fail(ErrorNumber::permission, target);
    }
    void drop() {
        handle_.close();
        ::DeleteFileW(path_.c_str());
    }

    bool kept_ = false;
    fs::path path_;  // before the handle, which sets it
    Handle handle_;
};

// Nothing may take the name of the file: what stood in it is kept elsewhere until the new content
// is whole.
void writeInPlace(const fs::path& target, ByteView content) {
    const Bytes old = readFile(target);
    const Handle out(::CreateFileW(target.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                   OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!out.valid()) {
        failByCode(::GetLastError(), target);
    }
    SafetyCopy copy(target, old);
    try {
        overwrite(out.get(), content, target);
    } catch (const Failure& failure) {
        try {
            overwrite(out.get(), old, target);
        } catch (const Failure&) {
            copy.keep();
            throw Failure(failure.number(),
                          std::string(failure.what()) + " (" + utf8FromPath(copy.path()) + ")");
        }
        throw;
    }
}

void takeName(const fs::path& target, ByteView content) {
    fs::path name;
    const HANDLE handle = createBeside(target, FILE_ATTRIBUTE_NORMAL, name);
    if (handle == INVALID_HANDLE_VALUE) {
        failByCode(::GetLastError(), target);
    }
    TemporaryFile file(handle, std::move(name));
    writeAll(file.handle(), content, target);
    if (::FlushFileBuffers(file.handle()) == 0) {
        failByCode(::GetLastError(), target);
    }
    file.rename(target);
}

}  // namespace

void replaceFile(const fs::path& file, ByteView content) {
    const fs::path target = followed(file);
    const DWORD attributes = ::GetFileAttributesW(target.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            fail(ErrorNumber::path, target);
        }
        if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
            fail(ErrorNumber::permission, target);
        }
    }
    try {
        takeName(target, content);
    } catch (const Failure& failure) {
        if (attributes == INVALID_FILE_ATTRIBUTES || failure.number() != ErrorNumber::permission) {
            throw;
        }
        writeInPlace(target, content);
    }
}

bool isWritable(const fs::path& file) {
    const fs::path target = followed(file);
    const DWORD attributes = ::GetFileAttributesW(target.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0) {
            return false;
        }
        // Asking for the file alone fails while another program holds it.
        return Handle(::CreateFileW(target.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr))
            .valid();
    }
    fs::path name;
    return Handle(createBeside(target, FILE_FLAG_DELETE_ON_CLOSE, name)).valid();
}

}  // namespace quillmark
