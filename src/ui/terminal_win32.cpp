#include <windows.h>

#include <QString>

#include "ui/qt_text.h"
#include "ui/terminal.h"

namespace quillmark {

// A program of windows has no console of its own; the one it was started from may be a pipe.
void printToTerminal(const std::string& text) {
    const std::wstring wide = toQt(text).toStdWString();
    HANDLE out = ::GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD written = 0;
    if ((out != nullptr && out != INVALID_HANDLE_VALUE) &&
        ::WriteFile(out, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0) {
        return;
    }
    if (::AttachConsole(ATTACH_PARENT_PROCESS) != 0) {
        out = ::GetStdHandle(STD_OUTPUT_HANDLE);
        ::WriteConsoleW(out, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
    }
}

}  // namespace quillmark
