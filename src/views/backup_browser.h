// The window of backups without the window: a walk through earlier texts of this run, or of the
// one before.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/translation.h"
#include "text/backup_file.h"
#include "text/backups.h"

namespace quillmark {

class BackupBrowser {
  public:
    // Opens on the newest text of this run.
    explicit BackupBrowser(const TextBackups& backups);

    [[nodiscard]] std::size_t count() const;
    [[nodiscard]] bool hasPrevious() const { return position_ > 0; }
    [[nodiscard]] bool hasNext() const { return position_ + 1 < count(); }
    [[nodiscard]] std::string caption(const Traduction& traduction) const;
    // What the file says of the text shown, such as "carte.typ Sauvegarde n°3"; empty for texts of
    // this run, which are all of the document at hand.
    [[nodiscard]] std::string title() const;
    // Empty without any. Throws Failure when the file of the earlier run can't be read any more.
    [[nodiscard]] std::string text() const;

    void cmdPrecedent_Click();
    void cmdSuivant_Click();
    // The texts that were found in the file of the earlier run, newest first to be seen.
    void showEarlierRun(const std::filesystem::path& file, std::vector<BackupPlace> places);
    void showThisRun();
    // Texts were kept meanwhile: stays on the one that is shown as long as it is there.
    void refresh();

  private:
    void moveTo(std::size_t position);

    const TextBackups& backups_;
    bool earlierRun_ = false;
    std::filesystem::path file_;
    std::vector<BackupPlace> places_;
    std::size_t position_ = 0;
    std::optional<std::size_t> number_;  // of the element shown of this run
};

}  // namespace quillmark
