#include "core/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "core/descriptor_posix.h"

namespace quillmark {

Bytes readFile(const std::filesystem::path& file) {
    const Descriptor in(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
    struct stat facts {};
    if (in.get() < 0 || ::fstat(in.get(), &facts) != 0) {
        failByErrno(errno, file, ErrorNumber::fileMissing);
    }
    // The size is a hint only: pipes have none, and a file can grow meanwhile.
    Bytes content;
    const auto hint = static_cast<std::size_t>(std::max<off_t>(facts.st_size, 0));
    if (S_ISREG(facts.st_mode) && hint > kLargestFile) {
        failOnFile(ErrorNumber::overflow, file.string());
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
            failOnFile(ErrorNumber::overflow, file.string());
        }
        if (used == content.size()) {
            content.resize(std::max<std::size_t>(used * 2, 65536));
        }
    }
}

}  // namespace quillmark
