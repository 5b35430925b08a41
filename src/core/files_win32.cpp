#include "core/files.h"

#include <algorithm>

#include "core/handle_win32.h"
#include "core/paths.h"

namespace quillmark {

Bytes readFile(const std::filesystem::path& file) {
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
        failOnFile(ErrorNumber::overflow, utf8FromPath(file));
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
            failOnFile(ErrorNumber::overflow, utf8FromPath(file));
        }
        if (used == content.size()) {
            content.resize(std::max<std::size_t>(used * 2, 65536));
        }
    }
}

}  // namespace quillmark
