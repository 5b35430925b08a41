#include "ui/file_pattern.h"

namespace quillmark {

// The dialogs here know no brackets, and disregard case.
QString filePattern(const QString& suffix) {
    return QLatin1Char('*') + suffix;
}

}  // namespace quillmark
