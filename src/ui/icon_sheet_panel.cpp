#include "ui/icon_sheet_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QSlider>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "bitmap/system_colours.h"
#include "ui/guard.h"
#include "ui/icon_sheet_view.h"
#include "ui/icons.h"
#include "ui/kind_tabs.h"
#include "ui/qt_text.h"
#include "views/preferences.h"

namespace quillmark {
namespace {

constexpr const char* kWindow = "frmMain";
constexpr std::array<ObjectKind, 4> kKinds{ObjectKind::Polygone, ObjectKind::Polyline,
                                           ObjectKind::POI, ObjectKind::ExtraPOI};

int tabOf(ObjectKind kind) {
    return static_cast<int>(kind) - 1;
}

QFont labelFont(const Settings& settings) {
    const std::string police = settings.text(keys::kPolice);
    QFont font = police == kOwnFont ? QFont() : QFont(toQt(police));
    font.setPointSize(settings.number(keys::kTaillePolice));
    return font;
}

}  // namespace

IconSheetPanel::IconSheetPanel(AppContext& context, QWidget* parent)
    : QWidget(parent),
      context_(context),
      kinds_(new KindTabs({icon("polygon"), icon("line"), icon("point"), icon("object")})),
      lblZoom_(new QLabel),
      sldZoomIcons_(new QSlider(Qt::Horizontal)),
      picAfficheTout_(new IconSheetView(context.session.document(), context.traduction)) {
    setObjectName(QStringLiteral("Picture5"));
    build();
    sldZoomIcons_->setValue(context.settings.number(keys::kZoomIcones));
    connectControls();
    retranslate();
}

void IconSheetPanel::build() {
    kinds_->setObjectName(QStringLiteral("tabIcones"));
    sldZoomIcons_->setObjectName(QStringLiteral("sldZoomIcons"));
    sldZoomIcons_->setRange(1, kLargestFactor);
    sldZoomIcons_->setPageStep(1);
    sldZoomIcons_->setFixedWidth(fontMetrics().averageCharWidth() * 12);
    // A narrow middle shortens the tabs and pushes nothing aside.
    kinds_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* zoom = new QHBoxLayout;
    zoom->setContentsMargins(4, 2, 4, 2);
    zoom->setSpacing(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing));
    zoom->addStretch();
    zoom->addWidget(lblZoom_);
    zoom->addWidget(sldZoomIcons_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 4, 0, 0);
    column->setSpacing(0);
    column->addWidget(kinds_);
    column->addWidget(picAfficheTout_, 1);
    column->addLayout(zoom);
}

void IconSheetPanel::connectControls() {
    connect(kinds_, &KindTabs::currentChanged, this,
            guarded("tabIcones_Click", kWindow, [this](int tab) {
                tabIcones_Click(kKinds.at(static_cast<std::size_t>(tab)));
            }));
    connect(sldZoomIcons_, &QSlider::valueChanged, this,
            guarded("sldZoomIcons_Change", kWindow, [this](int factor) {
                context_.settings.setNumber(keys::kZoomIcones, factor);
                readSettings();
            }));
    picAfficheTout_->chosen =
        guarded("picAfficheTout_MouseUp", kWindow,
                [this](const ObjectRef& object) { context_.current.choose(object); });
    picAfficheTout_->activated =
        guarded("picAfficheTout_DblClick", kWindow, [this](const ObjectRef& object) {
            if (editRequested) {
                editRequested(object);
            }
        });
    picAfficheTout_->menuRequested =
        guarded("picAfficheTout_MouseUp", kWindow, [this](const QPoint& place) {
            if (menu_ != nullptr) {
                menu_->popup(place);
            }
        });
    picAfficheTout_->zoomRequested = guarded("sldZoomIcons_Change", kWindow, [this](int by) {
        sldZoomIcons_->setValue(sldZoomIcons_->value() + by);
    });
    connections_.push_back(context_.current.changed.connect([this] { followCurrent(); }));
    connections_.push_back(context_.session.documentChanged.connect([this](const Change& change) {
        if (change.what == Change::What::replaced) {
            // The first kind that there is anything of.
            const auto found = std::find_if(kKinds.begin(), kKinds.end(), [this](ObjectKind kind) {
                return objectCount(context_.session.document(), kind) > 0;
            });
            kind_ = found == kKinds.end() ? ObjectKind::Polygone : *found;
            readSettings();
        }
        refresh();
        followCurrent();
    }));
    connections_.push_back(context_.languageChanged.connect([this] { retranslate(); }));
}

void IconSheetPanel::setObjectMenu(QMenu* menu) {
    menu_ = menu;
}

void IconSheetPanel::focusSheet() {
    picAfficheTout_->setFocus();
}

void IconSheetPanel::readSettings() {
    const Settings& settings = context_.settings;
    SheetOptions options;
    options.kind = kind_;
    options.factor = sldZoomIcons_->value();
    options.blended = settings.boolean(keys::kTransparence);
    options.labels = static_cast<LabelMode>(settings.number(keys::kLabels));
    options.LangueLabels = settings.number(keys::kLangueLabels);
    options.fontSize = settings.number(keys::kTaillePolice);
    for (std::size_t i = 0; i < options.activities.size(); ++i) {
        options.activities[i] = ResoudreCouleur(settings.number(keys::kActiveRoutingColor[i]));
    }
    picAfficheTout_->setOptions(options, labelFont(settings),
                                static_cast<Ground>(settings.number(keys::kFond)));
    lblZoom_->setText(toQt(context_.traduction.Trad("Main", "Zoom", "lblZoom")) +
                      QStringLiteral(" : ×%1").arg(options.factor));
    sldZoomIcons_->setAccessibleName(lblZoom_->text());
}

void IconSheetPanel::retranslate() {
    const Traduction& t = context_.traduction;
    kinds_->setAccessibleName(toQt(t.Trad("Main", "Icônes", "cmdVisualisation")));
    picAfficheTout_->setAccessibleName(kinds_->accessibleName());
    readSettings();
    refresh();
}

void IconSheetPanel::refresh() {
    const Traduction& t = context_.traduction;
    const Document& document = context_.session.document();
    const auto caption = [&](const std::string& name, ObjectKind kind) {
        kinds_->setCaption(tabOf(kind), toQt(name), IconSheet::cellCount(document, kind));
    };
    caption(t.Trad("Main", "Polygones", "tabPolygones"), ObjectKind::Polygone);
    caption(t.Trad("Main", "Polylignes", "tabPolylignes"), ObjectKind::Polyline);
    caption(t.Trad("Main", "POI", "tabPOI"), ObjectKind::POI);
    caption(t.Trad("Main", "Extra POI", "tabExtraPOI"), ObjectKind::ExtraPOI);
    showTab();
    picAfficheTout_->AfficheTout();
}

void IconSheetPanel::tabIcones_Click(ObjectKind kind) {
    // A refusal tells the current object again, which leads back to its kind.
    showKind(kind);
    if (context_.current.kind() != kind) {
        // None in an empty kind: commands on the object never mean one that is out of sight.
        context_.current.choose(picAfficheTout_->sheet().objectAt(0));
    }
}

void IconSheetPanel::showKind(ObjectKind kind) {
    kind_ = kind;
    showTab();
    readSettings();
}

void IconSheetPanel::showTab() {
    const QSignalBlocker byCode(kinds_);
    kinds_->setCurrentIndex(tabOf(kind_));
}

void IconSheetPanel::followCurrent() {
    const ObjectRef& object = context_.current.object();
    // Without an object the sheet stays where it is.
    if (object.kind != ObjectKind::none && object.kind != kind_) {
        showKind(object.kind);
    }
    picAfficheTout_->setCurrent(object);
}

}  // namespace quillmark
