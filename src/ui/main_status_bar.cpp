#include "ui/main_status_bar.h"

#include <QLabel>
#include <QProgressBar>
#include <QStyle>
#include <QToolButton>

#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

constexpr int kTellFor = 8000;          // milliseconds
constexpr int kWorkAppearsAfter = 250;  // milliseconds
constexpr int kSteps = 1000;

QLabel* plainLabel(const char* name) {
    auto* label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QToolButton* flatButton(const char* name) {
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setAutoRaise(true);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

}  // namespace

MainStatusBar::MainStatusBar()
    : line_(plainLabel("lblEtat")),
      offer_(flatButton("cmdOffre")),
      document_(plainLabel("lblDocument")),
      faults_(flatButton("cmdMessages")),
      work_(plainLabel("lblTravail")),
      progress_(new QProgressBar),
      cancel_(flatButton("cmdArreter")) {
    setObjectName(QStringLiteral("staPrincipale"));
    setSizeGripEnabled(false);
    const int margin = style()->pixelMetric(QStyle::PM_LayoutLeftMargin);
    setContentsMargins(margin, 0, margin, 0);
    progress_->setObjectName(QStringLiteral("prgTravail"));
    progress_->setRange(0, kSteps);
    progress_->setTextVisible(false);
    progress_->setMaximumWidth(fontMetrics().averageCharWidth() * 20);
    progress_->setMaximumHeight(fontMetrics().height());
    addWidget(line_, 1);
    addWidget(offer_);
    addPermanentWidget(work_);
    addPermanentWidget(progress_);
    addPermanentWidget(cancel_);
    addPermanentWidget(faults_);
    addPermanentWidget(document_);
    cancel_->setIcon(icon("close"));
    connect(faults_, &QToolButton::clicked, this, guarded("cmdMessages_Click", "frmMain", [this] {
                if (openJournal) {
                    openJournal();
                }
            }));
    connect(cancel_, &QToolButton::clicked, this, guarded("cmdArreter_Click", "frmMain", [this] {
                if (cancelWork) {
                    cancelWork();
                }
            }));
    connect(&fading_, &QTimer::timeout, line_, &QLabel::clear);
    fading_.setSingleShot(true);
    appearing_.setSingleShot(true);
    connect(&appearing_, &QTimer::timeout, this, [this] {
        work_->show();
        progress_->show();
        cancel_->show();
    });
    offer_->hide();
    faults_->hide();
    workEnded();
}

void MainStatusBar::retranslate(const Traduction& traduction) {
    // What was offered in the language of before is settled by the change.
    offer_->hide();
    line_->clear();
    cancel_->setText(toQt(traduction.Trad("MsgBox", "Annuler", "MsgBoxAnnuler")));
    errorWord_ = traduction.Trad("Main", "Erreurs :", "staErreurs");
    warningWord_ = traduction.Trad("Main", "Avertissements :", "staAvertissements");
    faults_->setToolTip(
        toQt(traduction.Trad("Main", "Afficher le journal des messages", "staJournalTip")));
    progress_->setAccessibleName(toQt(traduction.Trad("Main", "Avancement", "prgTravail")));
    showFaults(errors_, warnings_);
}

void MainStatusBar::tell(const std::string& line) {
    line_->setText(toQt(line));
    fading_.start(kTellFor);
}

void MainStatusBar::offer(const std::string& line, std::function<void()> accepted) {
    offer_->setText(withoutAccessKey(toQt(line)));
    offer_->setIcon(icon("information"));
    offer_->disconnect(this);
    connect(offer_, &QToolButton::clicked, this,
            guarded("cmdOffre_Click", "frmMain", [this, accepted = std::move(accepted)] {
                offer_->hide();
                accepted();
            }));
    offer_->show();
}

void MainStatusBar::showDocument(const std::string& state) {
    document_->setText(toQt(state));
    document_->setVisible(!state.empty());
}

void MainStatusBar::showFaults(int errors, int warnings) {
    errors_ = errors;
    warnings_ = warnings;
    QStringList parts;
    if (errors > 0) {
        parts << toQt(errorWord_) + QLatin1Char(' ') + QString::number(errors);
    }
    if (warnings > 0) {
        parts << toQt(warningWord_) + QLatin1Char(' ') + QString::number(warnings);
    }
    faults_->setText(parts.join(QStringLiteral("   ")));
    faults_->setAccessibleName(faults_->text());
    faults_->setIcon(icon(errors > 0 ? "error" : "warning"));
    faults_->setVisible(!parts.isEmpty());
}

void MainStatusBar::workStarted(const std::string& label, bool cancellable) {
    work_->setText(toQt(label));
    cancel_->setEnabled(cancellable);
    progress_->setValue(0);
    progress_->setRange(0, 0);
    appearing_.start(kWorkAppearsAfter);
}

void MainStatusBar::workProgressed(double fraction) {
    progress_->setRange(0, kSteps);
    progress_->setValue(static_cast<int>(fraction * kSteps));
}

void MainStatusBar::workEnded() {
    appearing_.stop();
    work_->hide();
    progress_->hide();
    cancel_->hide();
}

}  // namespace quillmark
