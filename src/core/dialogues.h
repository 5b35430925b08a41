// What the engine needs of a user: answers, and names of files. Windows implement it for the
// editor, the command line with refusals, tests with a script of answers.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace quillmark {

// Within messages and journals.
inline constexpr const char* kLineBreak = "\r\n";

// The buttons in the low four bits, any other value there is `ok`; the icon above them.
enum class MessageStyle : int {
    ok = 0,
    okCancel = 1,
    yesNoCancel = 3,
    yesNo = 4,
    retryCancel = 5,
    critical = 0x10,
    question = 0x20,
    warning = 0x30,
    information = 0x40,
    secondIsDefault = 0x100,  // Enter gives the second button, for what can't be taken back
};
[[nodiscard]] constexpr MessageStyle operator|(MessageStyle a, MessageStyle b) {
    return static_cast<MessageStyle>(static_cast<int>(a) | static_cast<int>(b));
}
[[nodiscard]] MessageStyle buttonsOf(MessageStyle style);
// `ok` when there is none.
[[nodiscard]] MessageStyle iconOf(MessageStyle style);

// Numbers of the platform's message boxes.
enum class Answer : int { ok = 1, cancel = 2, retry = 4, yes = 6, no = 7 };

struct FileFilter {
    std::string description;  // shown as it stands, such as "Fichiers TYP (*.typ)"
    // ".typ", compared without regard to case; a save adds the first one to a name without any.
    std::vector<std::string> suffixes;
};

class Dialogues {
  public:
    virtual ~Dialogues() = default;
    // An empty title stands for "Quillmark". Close box and Esc are the last button.
    virtual Answer AfficheMessage(const std::string& message, MessageStyle style,
                                  const std::string& titre) = 0;
    // Nothing when the user gives up. Paths are UTF-8.
    virtual std::optional<std::string> chooseFileToOpen(const std::string& titre,
                                                        const std::vector<FileFilter>& filters) = 0;
    virtual std::optional<std::string> chooseFileToSave(const std::string& titre,
                                                        const FileFilter& filter,
                                                        const std::string& proposedName) = 0;
    // One line of text; nothing when the user gives up.
    virtual std::optional<std::string> askText(const std::string& prompt, const std::string& titre,
                                               const std::string& initial) = 0;
};

}  // namespace quillmark
