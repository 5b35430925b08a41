#include "core/private_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "core/descriptor_posix.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

int writeAt(int descriptor, off_t position, ByteView content) {
    while (!content.empty()) {
        const ssize_t count = ::pwrite(descriptor, content.data(), content.size(), position);
        if (count < 0 && errno == EINTR) {
            continue;
        }
        if (count <= 0) {
            return count == 0 ? EIO : errno;
        }
        position += count;
        content = content.subspan(static_cast<std::size_t>(count));
    }
    return 0;
}

}  // namespace

void writeOverEnd(const fs::path& file, std::size_t overlap, ByteView content) {
    const Descriptor out(::open(file.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOCTTY, 0600));
    struct stat facts {};
    if (out.get() < 0 || ::fstat(out.get(), &facts) != 0) {
        failByErrno(errno, file);
    }
    if (!S_ISREG(facts.st_mode)) {
        failOnFile(ErrorNumber::device, file.string());
    }
    // Also one that someone else made.
    if (::fchmod(out.get(), 0600) != 0) {
        failByErrno(errno, file);
    }
    const off_t length = facts.st_size;
    const off_t position = std::max<off_t>(length - static_cast<off_t>(overlap), 0);
    if (const int error = writeAt(out.get(), position, content)) {
        [[maybe_unused]] const int shortened = ::ftruncate(out.get(), length);
        failByErrno(error, file);
    }
}

}  // namespace quillmark
