#include "ui/edited_range.h"

#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace quillmark {
namespace {

qsizetype lengthOf(const QTextDocument& document) {
    return document.characterCount() - 1;  // a separator of its own ends the text
}

}  // namespace

void EditedRange::reset(QString original) {
    original_ = std::move(original);
    head_ = tail_ = original_.size();
}

void EditedRange::rebase(QString original) {
    original_ = std::move(original);
    head_ = tail_ = 0;
}

void EditedRange::changed(const QTextDocument& document, int position, int added) {
    head_ = std::min<qsizetype>(head_, position);
    tail_ = std::min(tail_, std::max<qsizetype>(0, lengthOf(document) - position - added));
}

bool EditedRange::differs(const QTextDocument& document) {
    const qsizetype length = lengthOf(document);
    if (length != original_.size()) {
        return true;
    }
    const qsizetype end = length - tail_;
    QTextBlock block = document.findBlock(static_cast<int>(head_));
    while (head_ < end) {
        const QString line = block.text() + QChar::ParagraphSeparator;
        const qsizetype start = head_ - block.position();
        const qsizetype count = std::min(line.size() - start, end - head_);
        const auto place = std::mismatch(line.cbegin() + start, line.cbegin() + start + count,
                                         original_.cbegin() + head_);
        head_ += place.first - (line.cbegin() + start);
        if (head_ < block.position() + start + count) {
            return true;
        }
        block = block.next();
    }
    head_ = tail_ = length;
    return false;
}

}  // namespace quillmark
