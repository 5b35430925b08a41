#include "ui/text_filler.h"

#include <QTextDocument>
#include <algorithm>

#include "ui/guard.h"

namespace quillmark {
namespace {

constexpr qint64 kStepMilliseconds = 10;
constexpr qsizetype kPiece = 8'192;    // characters between two looks at the clock
constexpr qsizetype kAtOnce = 65'536;  // below that, nobody waits for a clock

}  // namespace

TextFiller::TextFiller(QTextDocument& document, std::function<void()> done)
    : done_(std::move(done)), cursor_(&document) {
    timer_.setSingleShot(true);
    timer_.setInterval(0);
    QObject::connect(&timer_, &QTimer::timeout, &timer_,
                     guarded("remplirTexte", "frmMain", [this] { work(false); }));
}

void TextFiller::replace(int start, int end, const QString& text, qsizetype textEnd) {
    cursor_.setPosition(start);
    remove_ = end - start;
    text_ = text;
    put_ = start;
    textEnd_ = textEnd;
    active_ = true;
    if (remove_ + textEnd_ - put_ <= kAtOnce) {
        work(true);
    } else {
        timer_.start();
    }
}

void TextFiller::stop() {
    timer_.stop();
    active_ = false;
    text_.clear();
    put_ = textEnd_ = 0;
    remove_ = 0;
}

void TextFiller::finish() {
    if (active_) {
        work(true);
    }
}

void TextFiller::work(bool all) {
    timer_.stop();
    QElapsedTimer clock;
    clock.start();
    while (!isDone() && (all || clock.elapsed() < kStepMilliseconds)) {
        step();
    }
    if (!isDone()) {
        timer_.start();
        return;
    }
    stop();
    done_();
}

// The new text first, so that what is seen is right at once.
void TextFiller::step() {
    if (put_ < textEnd_) {
        qsizetype end = std::min(put_ + kPiece, textEnd_);
        if (end < textEnd_ && text_.at(end - 1).isHighSurrogate()) {
            ++end;
        }
        cursor_.insertText(text_.mid(put_, end - put_));
        put_ = end;
        return;
    }
    const int count = std::min(remove_, static_cast<int>(kPiece));
    QTextCursor removed(cursor_);
    removed.setPosition(cursor_.position() + count, QTextCursor::KeepAnchor);
    removed.removeSelectedText();
    remove_ -= count;
}

}  // namespace quillmark
