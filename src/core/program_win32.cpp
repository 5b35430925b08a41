#include "core/program.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// Needs windows.h in front of it.
#include <shellapi.h>

#include <array>
#include <cstdio>

namespace quillmark {

std::vector<std::string> programArguments(int /*argc*/, char** /*argv*/) {
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; wide != nullptr && i < count; ++i) {
        const std::u8string text = std::filesystem::path(wide[i]).u8string();
        arguments.emplace_back(text.begin(), text.end());
    }
    LocalFree(wide);
    return arguments;
}

std::filesystem::path programFolder() {
    std::array<wchar_t, 32768> name{};
    const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
    return std::filesystem::path(name.data(), name.data() + length).parent_path();
}

void makeStandardStreamsBinary() {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
}

}  // namespace quillmark
