#include "core/lock_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace quillmark {

LockFile::LockFile(const std::filesystem::path& file) {
    std::error_code ignored;
    std::filesystem::create_directories(file.parent_path(), ignored);
    const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY, 0600);
    if (descriptor < 0) {
        return;
    }
    if (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        taken_ = errno == EWOULDBLOCK;
        ::close(descriptor);
        return;
    }
    handle_ = descriptor;
}

// The file stays: whoever removed it could remove the one that another process just locked.
LockFile::~LockFile() {
    if (isOwned()) {
        ::close(static_cast<int>(handle_));
    }
}

}  // namespace quillmark
