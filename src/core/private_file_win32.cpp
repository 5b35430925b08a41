#include "core/private_file.h"

#include <algorithm>

#include "core/handle_win32.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

bool seek(HANDLE handle, LONGLONG position) {
    LARGE_INTEGER place{};
    place.QuadPart = position;
    return ::SetFilePointerEx(handle, place, nullptr, FILE_BEGIN) != 0;
}

}  // namespace

// Folders of application data are closed to other users by what they inherit.
void writeOverEnd(const fs::path& file, std::size_t overlap, ByteView content) {
    const Handle out(::CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                   OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER length{};
    if (out.get() == INVALID_HANDLE_VALUE || ::GetFileSizeEx(out.get(), &length) == 0 ||
        !seek(out.get(), std::max<LONGLONG>(length.QuadPart - static_cast<LONGLONG>(overlap), 0))) {
        failByCode(::GetLastError(), file);
    }
    while (!content.empty()) {
        const auto step = static_cast<DWORD>(std::min<std::size_t>(content.size(), kLargestStep));
        DWORD count = 0;
        if (::WriteFile(out.get(), content.data(), step, &count, nullptr) == 0 || count == 0) {
            const DWORD error = ::GetLastError();
            if (seek(out.get(), length.QuadPart)) {
                ::SetEndOfFile(out.get());
            }
            failByCode(error, file);
        }
        content = content.subspan(count);
    }
}

}  // namespace quillmark
