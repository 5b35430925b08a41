// The form of the settings file. The toolkit's own would write "Param%E8tres".
#include <QIODevice>

#include "ui/qt_settings_store.h"

namespace quillmark {
namespace {

// Values that would not come back as they are stand in double quotes.
bool needsQuotes(const QString& value) {
    return value != value.trimmed() || value.startsWith(QLatin1Char('"')) ||
           value.contains(QLatin1Char('\n')) || value.contains(QLatin1Char('\r'));
}

QString quoted(QString value) {
    value.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    value.replace(QLatin1Char('"'), QLatin1String("\\\""));
    value.replace(QLatin1Char('\n'), QLatin1String("\\n"));
    value.replace(QLatin1Char('\r'), QLatin1String("\\r"));
    return QLatin1Char('"') + value + QLatin1Char('"');
}

QString unquoted(const QString& text) {
    if (text.size() < 2 || !text.startsWith(QLatin1Char('"')) || !text.endsWith(QLatin1Char('"'))) {
        return text;
    }
    QString value;
    for (qsizetype i = 1; i + 1 < text.size(); ++i) {
        QChar c = text[i];
        if (c == QLatin1Char('\\') && i + 2 < text.size()) {
            c = text[++i];
            c = c == QLatin1Char('n')   ? QLatin1Char('\n')
                : c == QLatin1Char('r') ? QLatin1Char('\r')
                                        : c;
        }
        value += c;
    }
    return value;
}

bool readFile(QIODevice& device, QSettings::SettingsMap& map) {
    QString text = QString::fromUtf8(device.readAll());
    if (text.startsWith(QChar(0xFEFF))) {
        text.remove(0, 1);
    }
    QString section;
    for (const QString& each : text.split(QLatin1Char('\n'))) {
        const QString line = each.trimmed();
        if (line.startsWith(QLatin1Char('[')) && line.endsWith(QLatin1Char(']'))) {
            section = line.mid(1, line.size() - 2).trimmed() + QLatin1Char('/');
            continue;
        }
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (equals <= 0 || section.isEmpty() || line.startsWith(QLatin1Char(';'))) {
            continue;
        }
        const QString key = section + line.left(equals).trimmed();
        if (!map.contains(key)) {
            map.insert(key, unquoted(line.mid(equals + 1).trimmed()));
        }
    }
    return true;
}

bool writeFile(QIODevice& device, const QSettings::SettingsMap& map) {
    QByteArray text;
    QString section;
    // The map is sorted, so that each section comes once.
    for (auto each = map.constBegin(); each != map.constEnd(); ++each) {
        const qsizetype slash = each.key().indexOf(QLatin1Char('/'));
        if (each.key().left(slash) != section) {
            section = each.key().left(slash);
            text += (text.isEmpty() ? "[" : "\n[") + section.toUtf8() + "]\n";
        }
        const QString value = each.value().toString();
        text += each.key().mid(slash + 1).toUtf8() + '=' +
                (needsQuotes(value) ? quoted(value) : value).toUtf8() + '\n';
    }
    return device.write(text) == text.size();
}

}  // namespace

std::unique_ptr<QSettings> fileSettings(const QString& file) {
    // There is room for few formats in a process, so this one is made known once.
    static const QSettings::Format kForm =
        QSettings::registerFormat(QStringLiteral("ini"), readFile, writeFile, Qt::CaseSensitive);
    return std::make_unique<QSettings>(file, kForm);
}

}  // namespace quillmark
