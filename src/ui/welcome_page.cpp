#include "ui/welcome_page.h"

#include <QAction>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

constexpr int kDrawing = 72;  // logical pixels
constexpr int kWidest = 420;  // of a path

QToolButton* commandButton(QAction& action) {
    auto* button = new QToolButton;
    button->setDefaultAction(&action);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setObjectName(QStringLiteral("cmd_") + action.objectName());
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return button;
}

}  // namespace

WelcomePage::WelcomePage(QAction& create, QAction& open)
    : hint_(new QLabel), recentCaption_(new QLabel), recent_(new QVBoxLayout) {
    setObjectName(QStringLiteral("fraAccueil"));
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
    auto* drawing = new QLabel;
    drawing->setPixmap(icon("quillmark").pixmap(kDrawing, kDrawing));
    drawing->setAlignment(Qt::AlignCenter);
    hint_->setObjectName(QStringLiteral("lblAccueil"));
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setWordWrap(true);
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(commandButton(open));
    buttons->addWidget(commandButton(create));
    auto* middle = new QHBoxLayout;
    middle->addStretch();
    middle->addLayout(buttons);
    middle->addStretch();
    recentCaption_->setAlignment(Qt::AlignCenter);
    QFont bold = recentCaption_->font();
    bold.setBold(true);
    recentCaption_->setFont(bold);
    recent_->setSpacing(0);

    auto* column = new QVBoxLayout(this);
    column->addStretch(2);
    column->addWidget(drawing);
    column->addSpacing(kDrawing / 4);
    column->addWidget(hint_);
    column->addSpacing(kDrawing / 4);
    column->addLayout(middle);
    column->addSpacing(kDrawing / 2);
    column->addWidget(recentCaption_);
    column->addLayout(recent_);
    column->addStretch(3);
}

void WelcomePage::retranslate(const Traduction& traduction) {
    hint_->setText(
        toQt(traduction.Trad("Main", "Déposer ici un fichier .typ ou .txt, ou :", "lblAccueil")));
    recentCaption_->setText(toQt(traduction.Trad("Main", "Fichiers récents", "lblRecents")));
}

void WelcomePage::setRecentFiles(const std::vector<std::string>& paths) {
    for (QToolButton* entry : entries_) {
        entry->hide();
        entry->deleteLater();
    }
    entries_.clear();
    for (const std::string& path : paths) {
        auto* entry = new QToolButton;
        entry->setAutoRaise(true);
        entry->setFocusPolicy(Qt::StrongFocus);
        entry->setIcon(icon("recent"));
        entry->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        const QString shown = entry->fontMetrics().elidedText(toQt(path), Qt::ElideMiddle, kWidest);
        entry->setText(withoutAccessKey(shown));
        entry->setToolTip(plainTip(toQt(path)));
        connect(entry, &QToolButton::clicked, this,
                guarded("mnuMRU_Click", "frmMain", [this, path] {
                    if (openRecent) {
                        openRecent(path);
                    }
                }));
        recent_->addWidget(entry, 0, Qt::AlignHCenter);
        entries_.push_back(entry);
    }
    recentCaption_->setVisible(!paths.empty());
}

void WelcomePage::setCanOpen(bool can) {
    for (QToolButton* entry : entries_) {
        entry->setEnabled(can);
    }
}

}  // namespace quillmark
