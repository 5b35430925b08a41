#include "session/start.h"

#include <system_error>
#include <vector>

#include "core/translation.h"
#include "text/backups.h"

namespace quillmark {

StartFacts prepareStart(Settings& settings, const Folders& folders, bool ownsBackup) {
    StartFacts facts;
    // All reads before all writes, which a store may gather into one.
    facts.firstStart = !settings.isStored(keys::kLangue);
    facts.Langue = settings.text(keys::kLangue);
    const bool checkUpdate = settings.boolean(keys::kMajAuto);
    std::vector<SettingKey> missing;
    for (const SettingKey& colour : keys::kActiveRoutingColor) {
        if (!settings.isStored(colour)) {
            missing.push_back(colour);
        }
    }
    if (!LangueExiste(folders.dataFolders(), facts.Langue)) {
        facts.Langue = kFrancais;
        settings.setText(keys::kLangue, facts.Langue);
    }
    settings.setBoolean(keys::kMajAuto, checkUpdate);
    for (const SettingKey& colour : missing) {
        settings.setText(colour, colour.defaut);
    }
    if (ownsBackup) {
        setAsideBackup(folders.backupFile());
    }
    return facts;
}

void cleanUpAtExit(Settings& settings, const Folders& folders, const std::string& Version) {
    settings.setBoolean(keys::kSauvegardeAuto, settings.boolean(keys::kSauvegardeAuto));
    // The installer of an earlier update.
    std::error_code ignored;
    std::filesystem::remove(folders.temporary / ("Quillmark" + Version.substr(1) + ".EXe"),
                            ignored);
}

}  // namespace quillmark
