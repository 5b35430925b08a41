#include "core/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "core/descriptor_posix.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(ErrorNumber number, const fs::path& file) {
    failOnFile(number, file.string());
}

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// A new file that is gone again unless it takes the name of another.
class TemporaryFile {
  public:
    // In the folder of `target`, with the permissions of a new file.
    explicit TemporaryFile(const fs::path& target) : descriptor_(create(target)) {}
    ~TemporaryFile() {
        if (!path_.empty()) {
            ::unlink(path_.c_str());
        }
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    Descriptor& descriptor() { return descriptor_; }
    void rename(const fs::path& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) {
            failByErrno(errno, target);
        }
        path_.clear();
    }

  private:
    int create(const fs::path& target) {
        const std::string stem = ".quillmark-" + std::to_string(::getpid()) + '-';
        for (int attempt = 0; attempt < 1000; ++attempt) {
            fs::path path = target.parent_path() / (stem + std::to_string(attempt));
            const int number = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (number >= 0) {
                path_ = std::move(path);
                return number;
            }
            if (errno != EEXIST) {
                failByErrno(errno, target);
            }
        }
        fail(ErrorNumber::permission, target);
    }

    fs::path path_;  // before the descriptor, which sets it
    Descriptor descriptor_;
};

// The file that is meant when `file` is a link, which may name one that isn't there yet.
fs::path followed(fs::path file) {
    std::error_code failed;
    for (int links = 0; fs::is_symlink(fs::symlink_status(file, failed)); ++links) {
        const fs::path next = fs::read_symlink(file, failed);
        if (failed || links == 40) {
            fail(ErrorNumber::path, file);
        }
        file = file.parent_path() / next;
    }
    return file;
}

// By the user whom writes go by, who can differ from the one who started the program.
bool may(int what, const fs::path& file) {
    return ::faccessat(AT_FDCWD, file.c_str(), what, AT_EACCESS) == 0;
}

bool isReadOnly(const fs::path& file, mode_t mode) {
    // Root may write to everything; a file without any write bit is still meant to stay.
    return (mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0 || !may(W_OK, file);
}

void overwrite(int descriptor, ByteView content, const fs::path& target) {
    if (::lseek(descriptor, 0, SEEK_SET) != 0) {
        failByErrno(errno, target);
    }
    writeAll(descriptor, content, target);
    if (::ftruncate(descriptor, static_cast<off_t>(content.size())) != 0) {
        failByErrno(errno, target);
    }
    flushToDevice(descriptor, target);
}

// The content of a file under its name with "~", beside it or else in the folder for temporary
// files. Gone at the end unless it is all that is left.
class SafetyCopy {
  public:
    SafetyCopy(const fs::path& target, ByteView content) : descriptor_(create(target)) {
        try {
            writeAll(descriptor_.get(), content, path_);
            flushToDevice(descriptor_.get(), path_);
        } catch (const Failure&) {
            ::unlink(path_.c_str());
            throw;
        }
    }
    ~SafetyCopy() {
        if (!kept_) {
            ::unlink(path_.c_str());
        }
    }
    SafetyCopy(const SafetyCopy&) = delete;
    SafetyCopy& operator=(const SafetyCopy&) = delete;
    [[nodiscard]] const fs::path& path() const { return path_; }
    void keep() { kept_ = true; }

  private:
    int create(const fs::path& target) {
        std::error_code none;
        for (const fs::path& folder : {folderOf(target), fs::temp_directory_path(none)}) {
            path_ = folder / target.filename();
            for (int attempt = 0; attempt < 100; ++attempt) {
                path_ += "~";
                const int number =
                    ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
                if (number >= 0) {
                    return number;
                }
                if (errno != EEXIST) {
                    break;
                }
            }
        }
        fail(ErrorNumber::permission, target);
    }

    bool kept_ = false;
    fs::path path_;  // before the descriptor, which sets it
    Descriptor descriptor_;
};

// Devices and pipes are written to; nothing could take their name.
void writeThrough(const fs::path& target, ByteView content) {
    Descriptor out(::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    if (out.get() < 0) {
        failByErrno(errno, target);
    }
    writeAll(out.get(), content, target);
    if (const int error = out.close()) {
        failByErrno(error, target);
    }
}

// The folder lets no other file take the name: what stood in the file is kept elsewhere until
// the new content is whole.
void writeInPlace(const fs::path& target, ByteView content) {
    const Descriptor out(::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    if (out.get() < 0) {
        failByErrno(errno, target);
    }
    const Bytes old = readFile(target);
    SafetyCopy copy(target, old);
    try {
        overwrite(out.get(), content, target);
    } catch (const Failure& failure) {
        try {
            overwrite(out.get(), old, target);
        } catch (const Failure&) {
            copy.keep();
            throw Failure(failure.number(),
                          std::string(failure.what()) + " (" + copy.path().string() + ")");
        }
        throw;
    }
}

void takeName(const fs::path& target, const struct stat* old, ByteView content) {
    TemporaryFile file(target);
    const int descriptor = file.descriptor().get();
    writeAll(descriptor, content, target);
    if (old != nullptr) {
        // The owner first: a change of owner takes bits away. Only root can do it for another's.
        [[maybe_unused]] const int ownerKept = ::fchown(descriptor, old->st_uid, old->st_gid);
        if (::fchmod(descriptor, old->st_mode & 07777) != 0) {
            failByErrno(errno, target);
        }
    }
    flushToDevice(descriptor, target);
    if (const int error = file.descriptor().close()) {
        failByErrno(error, target);
    }
    file.rename(target);
    // The content is safe; that the new name outlives a crash is tried for and no more.
    const Descriptor parent(::open(folderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent.get() >= 0) {
        [[maybe_unused]] const int nameKept = ::fsync(parent.get());
    }
}

}  // namespace

void replaceFile(const fs::path& file, ByteView content) {
    const fs::path target = followed(file);
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && S_ISDIR(old.st_mode)) {
        fail(ErrorNumber::path, target);
    }
    if (exists && !S_ISREG(old.st_mode)) {
        return writeThrough(target, content);
    }
    if (exists && isReadOnly(target, old.st_mode)) {
        fail(ErrorNumber::permission, target);
    }
    try {
        takeName(target, exists ? &old : nullptr, content);
    } catch (const Failure& failure) {
        if (!exists || failure.number() != ErrorNumber::permission) {
            throw;
        }
        writeInPlace(target, content);
    }
}

bool isWritable(const fs::path& file) {
    fs::path target;
    try {
        target = followed(file);
    } catch (const Failure&) {
        return false;
    }
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0) {
        return !S_ISDIR(old.st_mode) && !isReadOnly(target, old.st_mode);
    }
    const fs::path folder = folderOf(target);
    return may(W_OK | X_OK, folder) && fs::is_directory(folder);
}

}  // namespace quillmark
