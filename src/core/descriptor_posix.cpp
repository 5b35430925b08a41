#include "core/descriptor_posix.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace quillmark {

namespace fs = std::filesystem;

int Descriptor::close() {
    const int number = std::exchange(number_, -1);
    return number < 0 || ::close(number) == 0 || errno == EINTR ? 0 : errno;
}

void failByErrno(int error, const fs::path& file, ErrorNumber whenMissing) {
    switch (error) {
        case ENOENT:
            failOnFile(whenMissing, file.string());
        case ENOTDIR:
        case ELOOP:
        case ENAMETOOLONG:
            failOnFile(ErrorNumber::path, file.string());
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
        case ETXTBSY:
        case EBUSY:
            failOnFile(ErrorNumber::permission, file.string());
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            failOnFile(ErrorNumber::diskFull, file.string());
        case ENOMEM:
            failOnFile(ErrorNumber::memory, file.string());
        default:
            failOnFile(ErrorNumber::device, file.string());
    }
}

void writeAll(int descriptor, ByteView content, const fs::path& file) {
    while (!content.empty()) {
        const ssize_t count = ::write(descriptor, content.data(), content.size());
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            failByErrno(count == 0 ? EIO : errno, file);
        }
        content = content.subspan(static_cast<std::size_t>(count));
    }
}

void flushToDevice(int descriptor, const fs::path& file) {
    // Some file systems have no such call, which isn't a failure.
    if (::fsync(descriptor) != 0 && errno != EINVAL && errno != ENOTSUP && errno != ENOSYS) {
        failByErrno(errno, file);
    }
}

}  // namespace quillmark
