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
    return words + "  ( " + std::to_string(position_ + 1) + '/' + std::to_string(count()) + " )";
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
        --position_;
    }
}

void BackupBrowser::cmdSuivant_Click() {
    if (hasNext()) {
        ++position_;
    }
}

void BackupBrowser::showEarlierRun(const std::filesystem::path& file,
                                   std::vector<BackupPlace> places) {
    earlierRun_ = true;
    file_ = file;
    places_ = std::move(places);
    position_ = places_.empty() ? 0 : places_.size() - 1;
}

void BackupBrowser::showThisRun() {
    earlierRun_ = false;
    places_.clear();
    position_ = backups_.count() == 0 ? 0 : backups_.count() - 1;
}

}  // namespace quillmark
