#include "ui/qt_settings_store.h"

#include <QStringList>

#include "ui/qt_text.h"

namespace quillmark {
namespace {

QString place(std::string_view section, std::string_view key) {
    return toQt(std::string(section)) + QLatin1Char('/') + toQt(std::string(key));
}

// The spellings of a place that differ from it in case alone.
QStringList otherSpellings(const QSettings& settings, const QString& place) {
    QStringList others;
    const QStringList all = settings.allKeys();
    for (const QString& key : all) {
        if (key.compare(place, Qt::CaseInsensitive) == 0 && key != place) {
            others << key;
        }
    }
    return others;
}

}  // namespace

QtSettingsStore::QtSettingsStore(std::unique_ptr<QSettings> settings)
    : settings_(std::move(settings)) {
    settings_->setFallbacksEnabled(false);
    settings_->setAtomicSyncRequired(false);
}

QtSettingsStore::~QtSettingsStore() = default;

std::optional<std::string> QtSettingsStore::read(std::string_view section,
                                                 std::string_view key) const {
    // Other processes write to the same store; costs a look at the file's time.
    settings_->sync();
    const QString wanted = place(section, key);
    if (settings_->contains(wanted)) {
        return fromQt(settings_->value(wanted).toString());
    }
    const QStringList others = otherSpellings(*settings_, wanted);
    if (others.isEmpty()) {
        return std::nullopt;
    }
    return fromQt(settings_->value(others.constFirst()).toString());
}

void QtSettingsStore::write(std::string_view section, std::string_view key,
                            std::string_view value) {
    const QString wanted = place(section, key);
    const QString text = toQt(std::string(value));
    for (const QString& other : otherSpellings(*settings_, wanted)) {
        settings_->remove(other);
    }
    if (!settings_->contains(wanted) || settings_->value(wanted).toString() != text) {
        settings_->setValue(wanted, text);
    }
}

}  // namespace quillmark
