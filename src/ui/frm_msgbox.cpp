#include "ui/frm_msgbox.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

// Widths in characters of the font: lines longer than that are hard to read.
constexpr int kWidestText = 62;
constexpr int kLongestText = 24;  // lines, above which the text scrolls

const char* drawingOf(MessageStyle icon) {
    switch (icon) {
        case MessageStyle::critical:
            return "error";
        case MessageStyle::warning:
            return "warning";
        case MessageStyle::information:
            return "information";
        case MessageStyle::question:
            return "question";
        default:
            return nullptr;
    }
}

// A question is known by its buttons, also where nobody named an icon.
MessageStyle shownIcon(MessageStyle style) {
    const MessageStyle named = iconOf(style);
    if (named != MessageStyle::ok) {
        return named;
    }
    return buttonsOf(style) == MessageStyle::ok ? MessageStyle::information
                                                : MessageStyle::question;
}

QWidget* textArea(const std::string& message, QWidget* parent) {
    auto* text = new QLabel(toQt(message).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    text->setObjectName(QStringLiteral("Message"));
    text->setTextFormat(Qt::PlainText);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    text->setFocusPolicy(Qt::ClickFocus);
    text->setWordWrap(true);
    text->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    const QFontMetrics metrics(text->font());
    const int widest = kWidestText * metrics.averageCharWidth();
    const QRect needed = metrics.boundingRect(0, 0, widest, 1 << 20,
                                              Qt::TextWordWrap | Qt::TextExpandTabs, text->text());
    text->setMinimumWidth(std::min(widest, needed.width() + metrics.averageCharWidth()));
    if (needed.height() <= kLongestText * metrics.lineSpacing()) {
        text->setMinimumHeight(text->heightForWidth(text->minimumWidth()));
        return text;
    }
    auto* area = new QScrollArea(parent);
    area->setObjectName(QStringLiteral("scrMessage"));
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(text);
    area->setMinimumSize(widest + 4 * metrics.averageCharWidth(),
                         kLongestText * metrics.lineSpacing());
    return area;
}

}  // namespace

frmMsgBox::frmMsgBox(QWidget* parent, const Traduction& traduction, const std::string& message,
                     MessageStyle style, const std::string& titre)
    : QDialog(parent) {
    setObjectName(QStringLiteral("frmMsgBox"));
    setWindowTitle(titre.empty() ? QStringLiteral("Quillmark") : toQt(titre));
    auto* row = new QHBoxLayout;
    row->setSpacing(QDialog::style()->pixelMetric(QStyle::PM_LayoutLeftMargin) * 2);
    auto* picture = new QLabel;
    const int size = QDialog::style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    picture->setPixmap(icon(drawingOf(shownIcon(style))).pixmap(size, size));
    picture->setAlignment(Qt::AlignTop);
    row->addWidget(picture);
    row->addWidget(textArea(message, this), 1);

    auto* buttons = new QDialogButtonBox;
    addButtons(*buttons, traduction, style);
    auto* column = new QVBoxLayout(this);
    column->addLayout(row, 1);
    column->addSpacing(row->spacing() / 2);
    column->addWidget(buttons);
    column->setSizeConstraint(QLayout::SetMinAndMaxSize);
    setAccessibleDescription(toQt(message));
}

void frmMsgBox::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(windowTitle() + QStringLiteral("\n\n") +
                                              accessibleDescription());
        return;
    }
    QDialog::keyPressEvent(event);
}

void frmMsgBox::addButtons(QDialogButtonBox& box, const Traduction& traduction,
                           MessageStyle style) {
    struct Choice {
        std::string text;
        Answer answer;
    };
    std::vector<Choice> choices;
    const std::string ok = traduction.Trad("MsgBox", "OK", "MsgBoxOK");
    const std::string annuler = traduction.Trad("MsgBox", "Annuler", "MsgBoxAnnuler");
    const std::string oui = traduction.Trad("MsgBox", "Oui", "MsgBoxYes");
    const std::string non = traduction.Trad("MsgBox", "Non", "MsgBoxNo");
    switch (buttonsOf(style)) {
        case MessageStyle::okCancel:
            choices = {{ok, Answer::ok}, {annuler, Answer::cancel}};
            break;
        case MessageStyle::yesNo:
            choices = {{oui, Answer::yes}, {non, Answer::no}};
            break;
        case MessageStyle::yesNoCancel:
            choices = {{oui, Answer::yes}, {non, Answer::no}, {annuler, Answer::cancel}};
            break;
        case MessageStyle::retryCancel:
            choices = {
                {traduction.Trad("MsgBox", "Recommencer", "MsgBoxRecommencer"), Answer::retry},
                {annuler, Answer::cancel}};
            break;
        default:
            choices = {{ok, Answer::ok}};
            break;
    }
    Retour_ = choices.back().answer;
    const bool second =
        (static_cast<int>(style) & static_cast<int>(MessageStyle::secondIsDefault)) != 0;
    static constexpr std::array kNames{"cmdRecommencer", "cmdAnnuler", "cmdTroisieme"};
    for (std::size_t i = 0; i < choices.size(); ++i) {
        // One role for all, so that their order is the same on every desktop.
        auto* button = new QPushButton(withoutAccessKey(toQt(choices[i].text)));
        box.addButton(button, QDialogButtonBox::ActionRole);
        button->setObjectName(QLatin1String(kNames[i]));
        button->setDefault(i == (second && choices.size() > 1 ? 1U : 0U));
        if (button->isDefault()) {
            button->setFocus();
        }
        connect(button, &QPushButton::clicked, this,
                guarded(std::string(kNames[i]) + "_Click", "frmMsgBox",
                        [this, answer = choices[i].answer] {
                            Retour_ = answer;
                            accept();
                        }));
    }
}

}  // namespace quillmark
