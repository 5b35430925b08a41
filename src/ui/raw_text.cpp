#include "ui/raw_text.h"

#include "ui/qt_text.h"

namespace quillmark {

QString rawText(QString text) {
    QChar* out = text.data();
    const QChar* const end = out + text.size();
    QChar* const begin = out;
    for (const QChar* in = out; in != end; ++in) {
        switch (in->unicode()) {
            case u'\r':
                in += in + 1 != end && in[1] == u'\n' ? 1 : 0;
                [[fallthrough]];
            case u'\n':
                *out++ = QChar::ParagraphSeparator;
                break;
            case 0x2029:
            case 0xFDD0:
            case 0xFDD1:
                *out++ = QChar::ReplacementCharacter;
                break;
            default:
                *out++ = *in;
        }
    }
    text.truncate(out - begin);
    return text;
}

QString rawText(const std::string& utf8) {
    QString text = toQt(utf8);
    if (utf8.rfind("\xEF\xBB\xBF", 0) == 0) {
        text.prepend(QChar(0xFEFF));  // taken for a mark of the encoding
    }
    return rawText(std::move(text));
}

std::string fileText(QString raw) {
    std::string utf8 = fromQt(raw.replace(QChar::ParagraphSeparator, u'\n'));
    std::string text;
    text.reserve(utf8.size() +
                 static_cast<std::size_t>(std::count(utf8.begin(), utf8.end(), '\n')));
    for (std::size_t start = 0;;) {
        const std::size_t end = utf8.find('\n', start);
        text.append(utf8, start, end - start);
        if (end == std::string::npos) {
            return text;
        }
        text += "\r\n";
        start = end + 1;
    }
}

}  // namespace quillmark
