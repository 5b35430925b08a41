// Words for whoever started the program from a command line.
#pragma once

#include <string>

namespace quillmark {

void printToTerminal(const std::string& text);

}  // namespace quillmark
