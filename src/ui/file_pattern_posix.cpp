#include "ui/file_pattern.h"

namespace quillmark {

// "*.[tT][yY][pP]", since the dialogs here regard case.
QString filePattern(const QString& suffix) {
    QString pattern = QStringLiteral("*");
    for (const QChar c : suffix) {
        if (c.isLetter()) {
            pattern += QLatin1Char('[') + c.toLower() + c.toUpper() + QLatin1Char(']');
        } else {
            pattern += c;
        }
    }
    return pattern;
}

}  // namespace quillmark
