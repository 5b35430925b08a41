#include "ui/shown_texts.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QToolBar>
#include <QToolButton>

#include "ui/elided_label.h"
#include "ui/text_button.h"

namespace quillmark::testing {
namespace {

// Pixels above and below the letters that a line of text can do without.
constexpr int kLeading = 2;

QString nameOf(const QObject& object) {
    return object.objectName().isEmpty() ? QLatin1String(object.metaObject()->className())
                                         : object.objectName();
}

// Not a part that the toolkit makes by itself, such as the scroll buttons of tabs.
bool isOwn(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return !widget.objectName().startsWith(QLatin1String("qt_")) &&
           qobject_cast<const QLineEdit*>(parent) == nullptr &&
           qobject_cast<const QTabBar*>(parent) == nullptr;
}

QList<QWidget*> widgetsOf(QWidget& window) {
    QList<QWidget*> all{&window};
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (isOwn(*widget) &&
            (widget->window() == &window || qobject_cast<QMenu*>(widget) != nullptr)) {
            all << widget;
        }
    }
    return all;
}

bool isSeen(const QWidget& widget) {
    return widget.isVisible() && !widget.visibleRegion().isEmpty();
}

// Room for the text of an empty field; the button that clears it shows with text only.
int fieldRoom(const QLineEdit& field) {
    const int icons = static_cast<int>(field.findChildren<QToolButton*>().size()) -
                      (field.isClearButtonEnabled() ? 1 : 0);
    return field.width() - icons * field.height() - 8;
}

bool isCut(const QComboBox& box) {
    if (box.sizeAdjustPolicy() == QComboBox::AdjustToMinimumContentsLengthWithIcon) {
        return false;  // narrower than its entries on purpose: they show in full when it opens
    }
    QStyleOptionComboBox option;
    option.initFrom(&box);
    const QRect room = box.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                   QStyle::SC_ComboBoxEditField, &box);
    for (int i = 0; i < box.count(); ++i) {
        if (box.fontMetrics().horizontalAdvance(box.itemText(i)) > room.width()) {
            return true;
        }
    }
    return false;
}

bool isCut(const QLabel& label) {
    if (label.text().isEmpty() || dynamic_cast<const ElidedLabel*>(&label) != nullptr) {
        return false;
    }
    const int height = label.height() + kLeading;
    if (!label.wordWrap()) {
        return label.sizeHint().width() > label.width() || label.sizeHint().height() > height;
    }
    int widest = 0;
    for (const QString& word : label.text().split(QLatin1Char(' '))) {
        widest = std::max(widest, label.fontMetrics().horizontalAdvance(word));
    }
    return label.heightForWidth(label.width()) > height || widest > label.width();
}

bool isCut(const QAbstractButton& button) {
    if (dynamic_cast<const TextButton*>(&button) != nullptr) {
        return button.heightForWidth(button.width()) > button.height();
    }
    return button.sizeHint().width() > button.width() ||
           button.sizeHint().height() > button.height();
}

bool isCut(const QTabBar& tabs) {
    for (int i = 0; i < tabs.count(); ++i) {
        if (tabs.tabRect(i).right() >= tabs.width() ||
            tabs.fontMetrics().horizontalAdvance(tabs.tabText(i)) > tabs.tabRect(i).width()) {
            return true;
        }
    }
    return false;
}

bool isCut(const QMenuBar& bar) {
    const QList<QAction*> menus = bar.actions();
    return std::any_of(menus.begin(), menus.end(), [&](QAction* menu) {
        return !bar.rect().contains(bar.actionGeometry(menu));
    });
}

bool isCut(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        return isCut(*label);
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return isCut(*button);
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        return isCut(*box);
    }
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) {
        return field->fontMetrics().horizontalAdvance(field->placeholderText()) > fieldRoom(*field);
    }
    if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        return isCut(*tabs);
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        return group->fontMetrics().horizontalAdvance(group->title()) > group->width() - 16;
    }
    if (const auto* bar = qobject_cast<const QMenuBar*>(&widget)) {
        return isCut(*bar);
    }
    if (const auto* bar = qobject_cast<const QToolBar*>(&widget)) {
        return bar->sizeHint().width() > bar->width();
    }
    return false;
}

bool isWithinScrollArea(const QWidget& widget) {
    for (const QWidget* each = widget.parentWidget(); each != nullptr;
         each = each->parentWidget()) {
        if (qobject_cast<const QAbstractScrollArea*>(each) != nullptr) {
            return true;
        }
    }
    return false;
}

QString textOf(const QWidget& widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->text();
    }
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        return group->title();
    }
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return label != nullptr ? label->text() : QString();
}

// "key" stands twice: its second owner is told.
void countKey(const QString& text, const QObject& owner, std::map<QString, QString>& owners,
              QStringList& repeated) {
    const QString key = QKeySequence::mnemonic(text).toString();
    if (!key.isEmpty() && !owners.emplace(key, nameOf(owner)).second) {
        repeated << key + QLatin1String(": ") + owners[key] + QLatin1String(" and ") +
                        nameOf(owner) + QLatin1String(" \"") + text + QLatin1Char('"');
    }
}

}  // namespace

std::map<QString, QString> shownTexts(QWidget& window) {
    std::map<QString, QString> texts;
    const auto add = [&](const QObject& owner, const char* property, const QString& text) {
        texts[nameOf(owner) + QLatin1Char('.') + QLatin1String(property)] = text;
    };
    for (const QWidget* widget : widgetsOf(window)) {
        add(*widget, "tip", widget->toolTip());
        add(*widget, "name", widget->accessibleName());
        add(*widget, "text", textOf(*widget));
        if (const auto* field = qobject_cast<const QLineEdit*>(widget)) {
            add(*widget, "placeholder", field->placeholderText());
        }
        if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
            for (int i = 0; i < box->count(); ++i) {
                add(*widget, QByteArray("item").append(QByteArray::number(i)), box->itemText(i));
            }
        }
        if (const auto* tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                add(*widget, QByteArray("tab").append(QByteArray::number(i)), tabs->tabText(i));
            }
        }
        for (const QAction* action : widget->actions()) {
            if (!action->isSeparator()) {
                add(*action, "text", action->text());
                add(*action, "tip", action->toolTip());
            }
        }
    }
    add(window, "title", window.windowTitle());
    return texts;
}

QStringList cutTexts(QWidget& window) {
    QStringList cut;
    for (const QWidget* widget : widgetsOf(window)) {
        if (!isSeen(*widget)) {
            continue;
        }
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        const bool scrolls = qobject_cast<const QAbstractScrollArea*>(widget) != nullptr;
        const bool squeezed =
            !scrolls && widget->height() < widget->minimumSizeHint().height() - kLeading;
        const bool outside = !window.rect().contains(place) && !isWithinScrollArea(*widget);
        if (isCut(*widget) || squeezed || outside) {
            cut << nameOf(*widget) + QLatin1String(" \"") + textOf(*widget) +
                       QStringLiteral("\" %1x%2 of %3x%4")
                           .arg(widget->width())
                           .arg(widget->height())
                           .arg(widget->sizeHint().width())
                           .arg(widget->sizeHint().height());
        }
    }
    return cut;
}

QStringList namelessControls(QWidget& window) {
    QStringList nameless;
    for (QWidget* widget : widgetsOf(window)) {
        if (!isSeen(*widget) || (widget->focusPolicy() & Qt::TabFocus) == 0 || widget == &window) {
            continue;
        }
        QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(widget);
        if (reader == nullptr || reader->text(QAccessible::Name).trimmed().isEmpty()) {
            nameless << nameOf(*widget);
        }
    }
    return nameless;
}

QStringList repeatedAccessKeys(QWidget& window) {
    QStringList repeated;
    std::map<QString, QString> ofWindow;
    for (const QWidget* widget : widgetsOf(window)) {
        const auto* menu = qobject_cast<const QMenu*>(widget);
        if (menu != nullptr || qobject_cast<const QMenuBar*>(widget) != nullptr) {
            std::map<QString, QString> ofMenu;
            for (const QAction* action : widget->actions()) {
                countKey(action->text(), *action, menu != nullptr ? ofMenu : ofWindow, repeated);
            }
        } else if (isSeen(*widget) && (qobject_cast<const QAbstractButton*>(widget) != nullptr ||
                                       (qobject_cast<const QLabel*>(widget) != nullptr &&
                                        qobject_cast<const QLabel*>(widget)->buddy() != nullptr))) {
            countKey(textOf(*widget), *widget, ofWindow, repeated);
        }
    }
    return repeated;
}

}  // namespace quillmark::testing
