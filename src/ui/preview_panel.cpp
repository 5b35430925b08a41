#include "ui/preview_panel.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QScrollArea>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>

#include "paint/qt_image.h"
#include "ui/guard.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

constexpr const char* kWindow = "frmMain";
// Between rows: both pictures are to fit into a window of usual height.
constexpr int kGap = 4;

template <typename Control>
Control* named(const char* name) {
    auto* control = new Control;
    control->setObjectName(QLatin1String(name));
    return control;
}

// At the last member the keys are to stay with the two buttons, not to change the zoom.
void enableStep(QToolButton& button, bool enabled, QToolButton& other) {
    if (!enabled && button.hasFocus()) {
        other.setEnabled(true);
        other.setFocus();
    }
    button.setEnabled(enabled);
}

}  // namespace

PreviewPanel::PreviewPanel(AppContext& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      pane_(context.session.document()),
      optApercu_(new QButtonGroup(this)),
      scroll_(named<QScrollArea>("scrApercus")),
      lblZoom_(named<QLabel>("lblZoom")),
      sldZoom_(named<QSlider>("sldZoom")),
      zoom_(new QWidget),
      cbbFond_(named<QComboBox>("cbbFond")),
      lblFond_(named<QLabel>("lblFond")),
      chkTransparence_(named<QCheckBox>("chkTransparence")),
      members_(new QWidget),
      cmdPrecedent_(named<QToolButton>("cmdPrecedent")),
      cmdSuivant_(named<QToolButton>("cmdSuivant")),
      lblMembre_(named<QLabel>("lblMembre")) {
    setObjectName(QStringLiteral("fraApercu"));
    build();
    pane_.options.sldZoom = context.settings.number(keys::kZoomApercu);
    pane_.options.ground = static_cast<Ground>(context.settings.number(keys::kFond));
    pane_.options.blended = context.settings.boolean(keys::kTransparence);
    retranslate();
    sldZoom_->setValue(pane_.options.sldZoom);
    cbbFond_->setCurrentIndex(static_cast<int>(pane_.options.ground));
    chkTransparence_->setChecked(pane_.options.blended);
    connectControls();
    refresh();
}

void PreviewPanel::build() {
    auto* modes = new QHBoxLayout;
    modes->setSpacing(0);
    for (const int mode : {0, 1, 2}) {
        auto* button = new QToolButton;
        button->setObjectName(QStringLiteral("optAperçu%1").arg(mode));
        button->setCheckable(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::TabFocus);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        optApercu_->addButton(button, mode);
        modes->addWidget(button);
    }
    optApercu_->button(0)->setChecked(true);

    auto* zoomRow = new QHBoxLayout(zoom_);
    zoomRow->setContentsMargins(0, 0, 0, 0);
    sldZoom_->setOrientation(Qt::Horizontal);
    sldZoom_->setRange(kZoomLow, kZoomHigh);
    sldZoom_->setSingleStep(kZoomStep);
    sldZoom_->setPageStep(kZoomStep);
    sldZoom_->setTickInterval(kZoomStep);
    sldZoom_->setTickPosition(QSlider::TicksBelow);
    zoomRow->addWidget(lblZoom_);
    zoomRow->addWidget(sldZoom_, 1);

    auto* memberRow = new QHBoxLayout(members_);
    memberRow->setContentsMargins(0, 0, 0, 0);
    cmdPrecedent_->setText(QStringLiteral("<"));
    cmdSuivant_->setText(QStringLiteral(">"));
    memberRow->addStretch();
    memberRow->addWidget(cmdPrecedent_);
    memberRow->addWidget(lblMembre_);
    memberRow->addWidget(cmdSuivant_);
    memberRow->addStretch();

    auto* foot = new QHBoxLayout;
    lblFond_->setBuddy(cbbFond_);
    foot->addWidget(lblFond_);
    foot->addWidget(cbbFond_, 1);

    auto* pictures = new QWidget;
    auto* stack = new QVBoxLayout(pictures);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(kGap / 2);
    for (std::size_t i = 0; i < panes_.size(); ++i) {
        captions_[i] = new QLabel;
        panes_[i] = new QLabel;
        panes_[i]->setObjectName(QStringLiteral("Apercus%1").arg(i));
        panes_[i]->setFixedSize(kPaneSide, kPaneSide);
        stack->addWidget(captions_[i], 0, Qt::AlignHCenter);
        stack->addWidget(panes_[i], 0, Qt::AlignHCenter);
    }
    stack->addWidget(members_);
    stack->addStretch();
    // Two pictures are higher than a small window.
    scroll_->setWidget(pictures);
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll_->setMinimumWidth(kPaneSide + style()->pixelMetric(QStyle::PM_ScrollBarExtent));

    auto* column = new QVBoxLayout(this);
    column->setSpacing(kGap);
    column->addLayout(modes);
    column->addWidget(scroll_, 1);
    column->addWidget(zoom_);
    column->addLayout(foot);
    column->addWidget(chkTransparence_);
}

void PreviewPanel::connectControls() {
    connect(optApercu_, &QButtonGroup::idClicked, this,
            guarded("optAperçu_Click", kWindow, [this](int mode) {
                pane_.options.mode = static_cast<PreviewMode>(mode);
                refresh();
            }));
    connect(sldZoom_, &QSlider::valueChanged, this,
            guarded("sldZoom_Change", kWindow, [this](int value) {
                // Whole factors only, also under the mouse.
                const int whole = value / kZoomStep * kZoomStep;
                if (!sldZoom_->isSliderDown()) {
                    sldZoom_->setValue(whole);
                }
                if (pane_.options.sldZoom != whole) {
                    pane_.options.sldZoom = whole;
                    context_.settings.setNumber(keys::kZoomApercu, whole);
                    refresh();
                }
            }));
    connect(sldZoom_, &QSlider::sliderReleased, this, guarded("sldZoom_Change", kWindow, [this] {
                sldZoom_->setValue(pane_.options.sldZoom);
            }));
    connect(cbbFond_, &QComboBox::activated, this,
            guarded("cbbFond_Click", kWindow, [this](int index) {
                pane_.options.ground = static_cast<Ground>(index);
                context_.settings.setNumber(keys::kFond, index);
                refresh();
                if (picturesChanged) {
                    picturesChanged();
                }
            }));
    connect(chkTransparence_, &QCheckBox::clicked, this,
            guarded("chkTransparence_Click", kWindow, [this](bool blended) {
                pane_.options.blended = blended;
                context_.settings.setBoolean(keys::kTransparence, blended);
                refresh();
                if (picturesChanged) {
                    picturesChanged();
                }
            }));
    connect(cmdPrecedent_, &QToolButton::clicked, this,
            guarded("cmdPrecedent_Click", kWindow, [this] { stepMember(-1); }));
    connect(cmdSuivant_, &QToolButton::clicked, this,
            guarded("cmdSuivant_Click", kWindow, [this] { stepMember(1); }));
    connections_.push_back(context_.current.changed.connect([this] {
        pane_.select(context_.current.object());
        refresh();
    }));
    connections_.push_back(context_.session.documentChanged.connect([this](const Change& change) {
        pane_.select(context_.current.object());
        pane_.follow(change);
        refresh();
    }));
    connections_.push_back(context_.languageChanged.connect([this] { retranslate(); }));
}

void PreviewPanel::retranslate() {
    const Traduction& t = context_.traduction;
    optApercu_->button(0)->setText(toQt(t.Trad("Main", "Seul", "optAperçu0")));
    optApercu_->button(1)->setText(toQt(t.Trad("Main", "Mosaïque", "optAperçu1")));
    optApercu_->button(2)->setText(toQt(t.Trad("Main", "Superposition", "optAperçu2")));
    captions_[0]->setText(toQt(t.Trad("Main", "Jour", "lblJour")));
    captions_[1]->setText(toQt(t.Trad("Main", "Nuit", "lblNuit")));
    for (std::size_t i = 0; i < panes_.size(); ++i) {
        panes_[i]->setAccessibleName(captions_[i]->text());
    }
    scroll_->setAccessibleName(toQt(t.Trad("Main", "Aperçu", "fraApercu")));
    lblFond_->setText(toQt(t.Trad("Main", "Fond", "lblFond")));
    cbbFond_->setAccessibleName(lblFond_->text());
    const int index = cbbFond_->currentIndex();
    cbbFond_->clear();
    cbbFond_->addItems(
        {toQt(t.Trad("Main", "Carte", "cbbFond0")), toQt(t.Trad("Main", "Clair", "cbbFond1")),
         toQt(t.Trad("Main", "Sombre", "cbbFond2")), toQt(t.Trad("Main", "Damier", "cbbFond3"))});
    cbbFond_->setCurrentIndex(index);
    chkTransparence_->setText(toQt(t.Trad("Main", "Aperçu avec transparence", "chkTransparence")));
    cmdPrecedent_->setAccessibleName(toQt(t.Trad("Main", "POI précédent", "cmdPrecedent")));
    cmdSuivant_->setAccessibleName(toQt(t.Trad("Main", "POI suivant", "cmdSuivant")));
    cmdPrecedent_->setToolTip(cmdPrecedent_->accessibleName());
    cmdSuivant_->setToolTip(cmdSuivant_->accessibleName());
    refresh();
}

void PreviewPanel::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    refresh();
}

void PreviewPanel::paintEvent(QPaintEvent* event) {
    QWidget::paintEvent(event);
    // Painted anew on a screen of another scale.
    if (pane_.options.ratio != devicePixelRatioF()) {
        refresh();
    }
}

void PreviewPanel::refresh() {
    zoom_->setVisible(pane_.showsZoom());
    lblZoom_->setText(toQt(pane_.lblZoom(context_.traduction)));
    sldZoom_->setAccessibleName(lblZoom_->text());
    const int members = pane_.memberCount();
    const ObjectRef& object = context_.current.object();
    members_->setVisible(members > 1);
    enableStep(*cmdPrecedent_, object.member > 0, *cmdSuivant_);
    enableStep(*cmdSuivant_, object.member + 1 < members, *cmdPrecedent_);
    lblMembre_->setText(QStringLiteral("%1 / %2").arg(object.member + 1).arg(members));
    if (!isVisible()) {
        return;
    }
    pane_.options.ratio = devicePixelRatioF();
    const PreviewPane::Panes shown = pane_.maj_Aperçu();
    for (const bool night : {false, true}) {
        QPixmap picture = QPixmap::fromImage(toQImage(night ? shown.night : shown.day));
        picture.setDevicePixelRatio(pane_.options.ratio);
        QLabel& label = *panes_[night ? 1 : 0];
        label.setPixmap(picture);
        label.setToolTip(plainTip(
            toQt(pane_.tip(night ? shown.nightFaults : shown.dayFaults, context_.traduction))));
    }
    captions_[1]->setEnabled(shown.hasNight);
}

void PreviewPanel::stepMember(int by) {
    ObjectRef object = context_.current.object();
    object.member += by;
    context_.current.choose(object);
}

}  // namespace quillmark
