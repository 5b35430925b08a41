#include "core/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace quillmark {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(ErrorNumber number, const fs::path& file) {
    failOnFile(number, file.string());
}

[[noreturn]] void failByErrno(int error, const fs::path& file, ErrorNumber whenMissing) {
    switch (error) {
        case ENOENT:
            fail(whenMissing, file);
        case ENOTDIR:
        case ELOOP:
        case ENAMETOOLONG:
            fail(ErrorNumber::path, file);
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
            fail(ErrorNumber::permission, file);
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            fail(ErrorNumber::diskFull, file);
        case ENOMEM:
            fail(ErrorNumber::memory, file);
        default:
            fail(ErrorNumber::device, file);
    }
}

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int get() const { return number_; }
    // The error of the platform, 0 when there is none.
    int close() {
        const int number = std::exchange(number_, -1);
        return number < 0 || ::close(number) == 0 || errno == EINTR ? 0 : errno;
    }

  private:
    int number_;
};

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
            failByErrno(errno, target, ErrorNumber::path);
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
                failByErrno(errno, target, ErrorNumber::path);
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

void writeAll(int descriptor, ByteView content, const fs::path& target) {
    while (!content.empty()) {
        const ssize_t count = ::write(descriptor, content.data(), content.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            failByErrno(count == 0 ? EIO : errno, target, ErrorNumber::path);
        }
        content = content.subspan(static_cast<std::size_t>(count));
    }
}

void flushToDevice(int descriptor, const fs::path& target) {
    // Some file systems have no such call, which isn't a failure.
    if (::fsync(descriptor) != 0 && errno != EINVAL && errno != ENOTSUP && errno != ENOSYS) {
        failByErrno(errno, target, ErrorNumber::path);
    }
}

// Devices and pipes are written to; nothing could take their name.
void writeThrough(const fs::path& target, ByteView content) {
    Descriptor out(::open(target.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY));
    if (out.get() < 0) {
        failByErrno(errno, target, ErrorNumber::path);
    }
    writeAll(out.get(), content, target);
    if (const int error = out.close()) {
        failByErrno(error, target, ErrorNumber::path);
    }
}

}  // namespace

Bytes readFile(const fs::path& file) {
    const Descriptor in(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    struct stat facts {};
    if (in.get() < 0 || ::fstat(in.get(), &facts) != 0) {
        failByErrno(errno, file, ErrorNumber::fileMissing);
    }
    // The size is a hint only: pipes have none, and a file can grow meanwhile.
    Bytes content;
    const auto hint = static_cast<std::size_t>(std::max<off_t>(facts.st_size, 0));
    if (S_ISREG(facts.st_mode) && hint > kLargestFile) {
        fail(ErrorNumber::overflow, file);
    }
    content.resize((S_ISREG(facts.st_mode) ? hint : 0) + 1);
    for (std::size_t used = 0;;) {
        const ssize_t count = ::read(in.get(), content.data() + used, content.size() - used);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count < 0) {
            failByErrno(errno, file, ErrorNumber::fileMissing);
        }
        used += static_cast<std::size_t>(count);
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
    TemporaryFile file(target);
    const int descriptor = file.descriptor().get();
    writeAll(descriptor, content, target);
    if (exists) {
        // The owner first: a change of owner takes bits away. Only root can do it for another's.
        [[maybe_unused]] const int ownerKept = ::fchown(descriptor, old.st_uid, old.st_gid);
        if (::fchmod(descriptor, old.st_mode & 07777) != 0) {
            failByErrno(errno, target, ErrorNumber::path);
        }
    }
    flushToDevice(descriptor, target);
    if (const int error = file.descriptor().close()) {
        failByErrno(error, target, ErrorNumber::path);
    }
    file.rename(target);
    // The content is safe; that the new name outlives a crash is tried for and no more.
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    const Descriptor parent(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (parent.get() >= 0) {
        [[maybe_unused]] const int nameKept = ::fsync(parent.get());
    }
}

bool isWritable(const fs::path& link) {
    fs::path target;
    try {
        target = followed(link);
    } catch (const Failure&) {
        return false;
    }
    struct stat old {};
    if (::stat(target.c_str(), &old) == 0) {
        if (S_ISDIR(old.st_mode) || isReadOnly(target, old.st_mode)) {
            return false;
        }
        if (!S_ISREG(old.st_mode)) {
            return true;
        }
    }
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    return may(W_OK | X_OK, folder) && fs::is_directory(folder);
}

}  // namespace quillmark
