#include <cstdio>

#include "ui/terminal.h"

namespace quillmark {

void printToTerminal(const std::string& text) {
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

}  // namespace quillmark
