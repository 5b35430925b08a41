#include "views/backup_browser.h"

#include <utility>

namespace quillmark {

BackupBrowser::BackupBrowser(const TextBackups& backups) : backups_(backups) {
    showThisRun();
}

std::size_t BackupBrowser::count() const {
    return earlierRun_ ? places_.size() : backups_.count();
}

std::string BackupBrowser::caption(const Traduction& traduction) const {
    if (count() == 0) {
        return traduction.Trad("Sauvegardetxt", "Aucune sauvegarde", "msgPasdesauvegarde");
    }
    const std::string words =
        hasNext() ? traduction.Trad("Sauvegardetxt", "Sauvegarde au format texte", "msgSauvegarde")
                  : traduction.Trad("Sauvegardetxt", "Dernière sauvegarde au format texte",
                                    "msgDerniereSauvegarde");
    // The numbers go on when the oldest elements go.
    const std::size_t gone = earlierRun_ ? 0 : backups_.number(0);
    return words + "  ( " + std::to_string(gone + position_ + 1) + '/' +
           std::to_string(gone + count()) + " )";
}

std::string BackupBrowser::title() const {
    return earlierRun_ && !places_.empty() ? places_[position_].title : std::string();
}

std::string BackupBrowser::text() const {
    if (count() == 0) {
        return {};
    }
    return earlierRun_ ? readBackup(file_, places_[position_]) : backups_.text(position_);
}

void BackupBrowser::cmdPrecedent_Click() {
    if (hasPrevious()) {
        moveTo(position_ - 1);
    }
}

void BackupBrowser::cmdSuivant_Click() {
    if (hasNext()) {
        moveTo(position_ + 1);
    }
}

void BackupBrowser::moveTo(std::size_t position) {
    position_ = position;
    if (!earlierRun_ && count() > 0) {
        number_ = backups_.number(position_);
    }
}

void BackupBrowser::refresh() {
    if (earlierRun_ || backups_.count() == 0) {
        return;
    }
    if (!number_) {
        showThisRun();
        return;
    }
    const std::size_t first = backups_.number(0);
    moveTo(*number_ > first ? *number_ - first : 0);
}

void BackupBrowser::showEarlierRun(const std::filesystem::path& file,
                                   std::vector<BackupPlace> places) {
    earlierRun_ = true;
    file_ = file;
    places_ = std::move(places);
    moveTo(places_.empty() ? 0 : places_.size() - 1);
}

void BackupBrowser::showThisRun() {
    earlierRun_ = false;
    places_.clear();
    number_.reset();
    moveTo(backups_.count() == 0 ? 0 : backups_.count() - 1);
}

}  // namespace quillmark
