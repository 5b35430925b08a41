#include "ui/qt_settings_store.h"

namespace quillmark {

std::unique_ptr<QSettings> platformSettings() {
    return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                       QStringLiteral("Quillmark"), QStringLiteral("Quillmark"));
}

}  // namespace quillmark
