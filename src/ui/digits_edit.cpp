#include "ui/digits_edit.h"

#include <QKeyEvent>
#include <QValidator>

namespace quillmark {
namespace {

constexpr int kMostDigits = 5;

bool isDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// Takes all but the first digits out of what is pasted or dropped.
class DigitsOnly : public QValidator {
  public:
    DigitsOnly(QObject* parent, const QString& allowed) : QValidator(parent), allowed_(allowed) {}

    State validate(QString& input, int& position) const override {
        if (input == allowed_) {
            return Acceptable;
        }
        QString digits;
        int before = 0;
        for (int i = 0; i < input.size() && digits.size() < kMostDigits; ++i) {
            if (isDigit(input[i])) {
                digits += input[i];
                before += i < position ? 1 : 0;
            }
        }
        if (digits != input) {
            input = digits;
            position = before;
        }
        return Acceptable;
    }

  private:
    const QString& allowed_;
};

}  // namespace

DigitsEdit::DigitsEdit(const QString& objectName) {
    setObjectName(objectName);
    setInputMethodHints(Qt::ImhDigitsOnly);
    setAcceptDrops(false);  // files dropped there are the window's
    setValidator(new DigitsOnly(this, shown_));
}

void DigitsEdit::show(const QString& text) {
    if (text != this->text()) {
        shown_ = text;
        setText(text);
    }
}

void DigitsEdit::keyPressEvent(QKeyEvent* event) {
    const bool command = (event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier)) != 0;
    const QString typed = event->text();
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!command && !enter && !typed.isEmpty() && typed[0].isPrint()) {
        const auto stays = text().size() - selectedText().size();
        if (!isDigit(typed[0]) || stays >= kMostDigits) {
            event->ignore();
            return;
        }
    }
    QLineEdit::keyPressEvent(event);
    if (enter && left) {
        left();
    }
}

void DigitsEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    switch (event->reason()) {
        case Qt::ActiveWindowFocusReason:
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
            return;
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
            if (left) {
                left();
            }
            return;
        default:
            break;
    }
    // A box that opens within the press of the mouse would take that press away from the control
    // that was pressed.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!hasFocus() && left) {
                left();
            }
        },
        Qt::QueuedConnection);
}

}  // namespace quillmark
