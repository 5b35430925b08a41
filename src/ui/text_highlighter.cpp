#include "ui/text_highlighter.h"

#include <QAbstractTextDocumentLayout>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QTextLayout>

#include "ui/raw_text.h"

namespace quillmark {

TextHighlighter::TextHighlighter(QTextDocument& document) : document_(document) {
    connect(&document, &QTextDocument::contentsChange, this,
            [this](int position, int /*removed*/, int added) { forget(position, added); });
}

void TextHighlighter::setTheme(const TextTheme& theme) {
    theme_ = theme;
    ++coloured_;
}

// Several edits in one step are told as one, with the old blocks that lie between them.
void TextHighlighter::forget(int position, int added) const {
    const int end = position + added;
    for (QTextBlock block = document_.findBlock(position);
         block.isValid() && block.position() <= end; block = block.next()) {
        block.setUserState(-1);
    }
}

bool TextHighlighter::colour(const QTextBlock& block) const {
    QTextLayout* layout = block.layout();
    // While an input method composes, the formats are its own.
    if (block.userState() == coloured_ || !layout->preeditAreaText().isEmpty()) {
        return false;
    }
    const QString text = block.text();
    QList<QTextLayout::FormatRange> formats;
    for (const TextSpan& span : classifyLine(viewOf(text))) {
        if (span.what != TextClass::value) {
            QTextLayout::FormatRange range;
            range.start = static_cast<int>(span.start);
            range.length = static_cast<int>(span.length);
            range.format.setForeground(theme_.of(span.what));
            formats.push_back(range);
        }
    }
    QTextBlock(block).setUserState(coloured_);
    if (formats == layout->formats()) {
        return false;
    }
    layout->setFormats(formats);
    return true;
}

void TextHighlighter::colour(const QTextBlock& first, const QTextBlock& last) {
    bool any = false;
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        any = colour(block) || any;
        if (block == last) {
            break;
        }
    }
    if (any) {
        // Sizes stay, and who calls is about to paint: nobody has to be told.
        const QSignalBlocker quiet(document_.documentLayout());
        document_.markContentsDirty(first.position(),
                                    last.position() + last.length() - first.position());
    }
}

}  // namespace quillmark
