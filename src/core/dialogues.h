// What the engine needs of a user: answers, and names of files. Windows implement it for the
// editor, the command line with refusals, tests with a script of answers.
#pragma once

#include <optional>
#include <string>

namespace quillmark {

enum class MessageStyle : int {
    ok = 0,
    okCancel = 1,
    yesNoCancel = 3,
    yesNo = 4,
    retryCancel = 5,
};

// Numbers of the platform's message boxes.
enum class Answer : int { ok = 1, cancel = 2, retry = 4, yes = 6, no = 7 };

struct FileFilter {
    std::string description;  // shown as it stands, such as "Fichiers TYP (*.typ)"
    std::string suffix;       // ".typ", compared without regard to case
};

class Dialogues {
  public:
    virtual ~Dialogues() = default;
    // An empty title stands for "Quillmark".
    virtual Answer AfficheMessage(const std::string& message, MessageStyle style,
                                  const std::string& titre) = 0;
    // Nothing when the user gives up. Paths are UTF-8.
    virtual std::optional<std::string> chooseFileToOpen(const std::string& titre,
                                                        const FileFilter& filter) = 0;
    virtual std::optional<std::string> chooseFileToSave(const std::string& titre,
                                                        const FileFilter& filter,
                                                        const std::string& proposedName) = 0;
};

}  // namespace quillmark
