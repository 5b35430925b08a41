#include <QStandardPaths>

#include "ui/qt_settings_store.h"

namespace quillmark {

std::unique_ptr<QSettings> platformSettings() {
    return fileSettings(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                        QStringLiteral("/Quillmark/Quillmark.ini"));
}

}  // namespace quillmark
