#include "ui/number_box.h"

#include <QLineEdit>
#include <QStyleOptionSpinBox>
#include <algorithm>

#include "editors/colour_fields.h"
#include "ui/guard.h"
#include "ui/qt_text.h"

namespace quillmark {

NumberBox::NumberBox(const char* objectName, int maximum) : maximum_(maximum) {
    setObjectName(QLatin1String(objectName));
    setAlignment(Qt::AlignRight);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(lineEdit(), &QLineEdit::textEdited, this,
            guarded("txt_Change", "frmPalette", [this](const QString& text) {
                if (typed) {
                    typed(fromQt(text));
                }
            }));
}

void NumberBox::show(const std::string& text) {
    if (lineEdit()->text() != toQt(text)) {
        const int caret = lineEdit()->cursorPosition();
        lineEdit()->setText(toQt(text));
        lineEdit()->setCursorPosition(caret);
    }
}

void NumberBox::stepBy(int steps) {
    const int value = std::clamp(lineEdit()->text().toInt() + steps, 0, maximum_);
    guarded("txt_Change", "frmPalette", typed)(std::to_string(value));
    selectAll();
}

// A digit too many is refused where it is typed, instead of pushing out the last one.
QValidator::State NumberBox::validate(QString& text, int& position) const {
    const auto isOther = [](QChar c) { return c < QLatin1Char('0') || c > QLatin1Char('9'); };
    position -= static_cast<int>(std::count_if(text.cbegin(), text.cbegin() + position, isOther));
    text.removeIf(isOther);
    return text.size() > static_cast<qsizetype>(kFieldDigits) ? QValidator::Invalid
                                                              : QValidator::Acceptable;
}

QAbstractSpinBox::StepEnabled NumberBox::stepEnabled() const {
    const int value = lineEdit()->text().toInt();
    return (value > 0 ? StepDownEnabled : StepNone) | (value < maximum_ ? StepUpEnabled : StepNone);
}

void NumberBox::focusOutEvent(QFocusEvent* event) {
    QAbstractSpinBox::focusOutEvent(event);
    if (left) {
        guarded("txt_LostFocus", "frmPalette", left)();
    }
}

QSize NumberBox::sizeHint() const {
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    const QSize text(fontMetrics().horizontalAdvance(QStringLiteral("00000")),
                     lineEdit()->sizeHint().height());
    return style()->sizeFromContents(QStyle::CT_SpinBox, &option, text, this);
}

}  // namespace quillmark
