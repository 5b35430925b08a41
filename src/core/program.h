// What a program needs of the platform beyond the standard library.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillmark {

// The arguments behind the program's name, in UTF-8.
[[nodiscard]] std::vector<std::string> programArguments(int argc, char** argv);
// The folder of the running program; empty when the platform doesn't tell.
[[nodiscard]] std::filesystem::path programFolder();
// Standard streams carry files here, so that no line end may be converted.
void makeStandardStreamsBinary();

}  // namespace quillmark
