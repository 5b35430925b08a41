// Where the program's files lie.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillmark {

struct Folders {
    std::filesystem::path program;   // data files as installed: beside the executable, else
                                     // `../share/quillmark`
    std::filesystem::path userData;  // `Quillmark` in the platform's application data
    std::filesystem::path temporary;

    // A data file such as "Langues/English.lng": the user's own first, then the program's. The
    // program's place when neither exists.
    [[nodiscard]] std::filesystem::path dataFile(const std::string& name) const;
    // Where data files are looked for, in this order.
    [[nodiscard]] std::vector<std::filesystem::path> dataFolders() const {
        return {userData, program};
    }
    [[nodiscard]] std::filesystem::path backupFile() const { return userData / "Quillmark.save"; }
};

[[nodiscard]] Folders platformFolders();

}  // namespace quillmark
