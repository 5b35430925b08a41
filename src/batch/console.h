// The streams and the data folder of one run, and how things are told on them.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "core/dialogues.h"
#include "core/journal.h"
#include "core/translation.h"
#include "session/open.h"

namespace quillmark {

enum class ExitStatus : int { fine = 0, warnings = 1, errors = 2, usage = 3 };

class Console {
  public:
    Console(std::istream& in, std::ostream& out, std::ostream& err)
        : in_(in), out_(out), err_(err) {}

    Traduction traduction;

    [[nodiscard]] std::ostream& out() { return out_; }

    // "-" reads standard input and takes it for a TYP file when its magic says so. Nothing, and
    // told on `faults`, when it can't be read.
    std::optional<OpenedFile> open(const std::string& name, std::ostream& faults, int codePage = 0);
    std::optional<OpenedFile> open(const std::string& name, int codePage = 0) {
        return open(name, err_, codePage);
    }
    // Replaces the file, or writes to standard output. False, and told, when it can't be written.
    bool write(const std::string& name, ByteView content);

    // One line "NAME: error|warning: message"; line breaks within the message become blanks.
    static void tell(std::ostream& stream, const std::string& name, JournalKind kind,
                     std::string_view message);
    void tell(const std::string& name, JournalKind kind, std::string_view message) {
        tell(err_, name, kind, message);
    }
    // A line for each entry, errors first.
    static void tell(std::ostream& stream, const std::string& name, const Journal& journal);
    void tell(const std::string& name, const Journal& journal) { tell(err_, name, journal); }

  private:
    std::istream& in_;
    std::ostream& out_;
    std::ostream& err_;
};

// Nobody sits at a command line: every message is told and every question refused.
class RefusingDialogues : public Dialogues {
  public:
    RefusingDialogues(Console& console, std::string file)
        : console_(console), file_(std::move(file)) {}
    Answer AfficheMessage(const std::string& message, MessageStyle style,
                          const std::string& titre) override;
    std::optional<std::string> chooseFileToOpen(const std::string& titre,
                                                const std::vector<FileFilter>& filters) override;
    std::optional<std::string> chooseFileToSave(const std::string& titre, const FileFilter& filter,
                                                const std::string& proposedName) override;
    std::optional<std::string> askText(const std::string& prompt, const std::string& titre,
                                       const std::string& initial) override;

  private:
    Console& console_;
    std::string file_;  // what the messages are about
};

}  // namespace quillmark
