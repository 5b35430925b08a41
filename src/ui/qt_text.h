// Between the program's UTF-8 and the toolkit's strings.
#pragma once

#include <QString>
#include <string>

namespace quillmark {

[[nodiscard]] inline QString toQt(const std::string& text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
[[nodiscard]] inline std::string fromQt(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

// Text from files in menus, buttons and tabs: "&" is no access key.
[[nodiscard]] inline QString withoutAccessKey(QString text) {
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}
// Text from files as a tip: never markup, line breaks kept.
[[nodiscard]] inline QString plainTip(const QString& text) {
    return text.isEmpty() ? text
                          : QLatin1String("<p style='white-space:pre-wrap'>") +
                                text.toHtmlEscaped() + QLatin1String("</p>");
}

}  // namespace quillmark
