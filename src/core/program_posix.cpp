#include "core/program.h"

namespace quillmark {

std::vector<std::string> programArguments(int argc, char** argv) {
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

std::filesystem::path programFolder() {
    std::error_code none;
    return std::filesystem::read_symlink("/proc/self/exe", none).parent_path();
}

void makeStandardStreamsBinary() {}

}  // namespace quillmark
