#include "ui/kind_tabs.h"

namespace quillmark {

KindTabs::KindTabs(const std::vector<QIcon>& drawings) {
    setDrawBase(false);
    setExpanding(false);
    setUsesScrollButtons(false);
    setElideMode(Qt::ElideRight);
    for (const QIcon& drawing : drawings) {
        tabs_.push_back({drawing, {}, {}});
        addTab(QString());
    }
}

void KindTabs::setCaption(int tab, const QString& name, int count) {
    Kind& kind = tabs_.at(static_cast<std::size_t>(tab));
    kind.name = name;
    kind.count = QString::number(count);
    const QString whole = name + QStringLiteral(" (") + kind.count + QLatin1Char(')');
    setTabToolTip(tab, whole);
    setAccessibleTabName(tab, whole);
    arrange();
}

void KindTabs::resizeEvent(QResizeEvent* event) {
    QTabBar::resizeEvent(event);
    arrange();
}

void KindTabs::arrange() {
    showNames(true);
    if (sizeHint().width() > width()) {
        showNames(false);
    }
}

void KindTabs::showNames(bool names) {
    for (int tab = 0; tab < count(); ++tab) {
        const Kind& kind = tabs_[static_cast<std::size_t>(tab)];
        setTabText(tab, names ? tabToolTip(tab) : kind.count);
        setTabIcon(tab, names ? QIcon() : kind.drawing);
    }
}

}  // namespace quillmark
