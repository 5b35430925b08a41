// What the command line of the editor asks for.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace quillmark {

struct StartArguments {
    enum class Wish : std::uint8_t { start, help, version };
    Wish wish = Wish::start;
    std::filesystem::path file;  // absolute; empty without one
};

// The first argument is the file, with or without quotes, or as a "file:" address. Where it names
// no file and there are more, they are taken for one name with blanks that nobody quoted. Switches
// are switches unless a file of that name exists. `arguments` are UTF-8 without the program's
// name; relative names lie in `folder`.
[[nodiscard]] StartArguments readArguments(
    const std::vector<std::string>& arguments, const std::filesystem::path& folder,
    const std::function<bool(const std::filesystem::path&)>& exists);

}  // namespace quillmark
