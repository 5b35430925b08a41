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

// The program's own data: beside the executable, else `../share/quillmark`.
[[nodiscard]] std::filesystem::path installedData();

// For the program's log: where the environment names other folders of application data than the
// platform does. Empty where the environment is all that names them.
[[nodiscard]] std::string folderNote();

struct FolderPair {
    std::string folder;    // as the platform names it
    std::string variable;  // what the environment says
};
// Both on a line for each pair, if any of them differ by more than case and separators at the end.
[[nodiscard]] std::string differingFolders(const std::vector<FolderPair>& pairs);

}  // namespace quillmark
