#include "ui/frm_palette.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>
#include <utility>

#include "bitmap/colour.h"
#include "bitmap/garmin_swatches.h"
#include "editors/recent_colours.h"
#include "paint/qt_image.h"
#include "ui/colour_field.h"
#include "ui/guard.h"
#include "ui/icons.h"
#include "ui/number_box.h"
#include "ui/qt_text.h"
#include "ui/swatch_grid.h"

namespace quillmark {
namespace {

// Logical pixels.
constexpr int kBetweenGroups = 16;
constexpr int kToCaption = 4;
constexpr int kStrip = 22;
constexpr SwatchGrid::Shape kPalette{kSwatchColumns, QSize(19, 19), 1};
constexpr SwatchGrid::Shape kCorners{8, QSize(30, 24), 3};
constexpr SwatchGrid::Shape kNearest{2, QSize(40, 24), 0};
constexpr SwatchGrid::Shape kChoice{1, QSize(52, 40), 0};
constexpr SwatchGrid::Shape kRecent{static_cast<int>(kRecentColours) / 2, QSize(19, 19), 5};

constexpr std::array<const char*, kChooserFields> kFieldNames{"txtRed", "txtGreen", "txtBlue",
                                                              "txtHue", "txtSat",   "txtLum"};

template <typename Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QLatin1String(name));
    return control;
}

QVBoxLayout* column(int spacing) {
    auto* made = new QVBoxLayout;
    made->setContentsMargins(0, 0, 0, 0);
    made->setSpacing(spacing);
    return made;
}

QVBoxLayout* captioned(QLabel* caption, QWidget* control) {
    auto* made = column(kToCaption);
    caption->setContentsMargins(SwatchGrid::kMargin, 0, 0, 0);
    made->addWidget(caption);
    made->addWidget(control, 0, Qt::AlignLeft);
    return made;
}

std::vector<ChooserSwatch> paletteSwatches() {
    std::vector<ChooserSwatch> swatches;
    for (int n = 1; n <= kSwatches; ++n) {
        swatches.push_back({couleurDuCarre(n), colourText(couleurDuCarre(n)), false});
    }
    return swatches;
}

}  // namespace

frmPalette::frmPalette(QWidget* parent, AppContext& context, ChooserRequest request,
                       std::unique_ptr<ScreenColour> screen)
    : QDialog(parent),
      context_(context),
      chooser_(std::move(request), context.settings, context.traduction),
      screen_(std::move(screen)),
      TabStrip1_(named(new QTabBar, "TabStrip1")),
      palette_(new QWidget),
      field_(new QWidget),
      choice_(new QWidget),
      lblChoix_(named(new QLabel, "lblChoix")),
      lblCouleurTexte_(named(new QLabel, "lblCouleurTexte")),
      lblVoisines_(named(new QLabel, "lblVoisines")),
      lblProche_(named(new QLabel, "lblProche")),
      lblRecentes_(named(new QLabel, "lblRecentes")) {
    setObjectName(QStringLiteral("frmPalette"));
    for (int tab = 1; tab <= static_cast<int>(ChooserTab::all); ++tab) {
        TabStrip1_->addTab(QString());
    }
    TabStrip1_->setCurrentIndex(static_cast<int>(chooser_.state().tab) - 1);
    TabStrip1_->setExpanding(false);
    TabStrip1_->setDrawBase(true);
    buildPictures();
    buildFields();
    buildButtons();
    palette_->setLayout(palettePanel());
    field_->setLayout(fieldPanel());

    auto* panels = new QHBoxLayout;
    panels->setSpacing(kBetweenGroups);
    panels->addWidget(palette_, 0, Qt::AlignTop);
    panels->addWidget(field_, 0, Qt::AlignTop);
    panels->addStretch();
    choice_->setLayout(choicePanel());
    auto* recent = captioned(lblRecentes_, recent_);
    recent->addStretch();
    auto* choice = new QHBoxLayout;
    choice->setSpacing(kBetweenGroups);
    choice->addWidget(choice_, 0, Qt::AlignTop);
    choice->addLayout(recent);
    choice->addStretch();
    auto* foot = new QHBoxLayout;
    foot->setContentsMargins(SwatchGrid::kMargin, 0, SwatchGrid::kMargin, 0);
    foot->addWidget(picPicker_);
    foot->addWidget(cmdAutres_);
    foot->addStretch();
    foot->addWidget(cmdOK_);
    foot->addWidget(cmdAnnuler_);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 12, 16, 14);
    all->setSpacing(14);
    all->addWidget(TabStrip1_);
    all->addLayout(panels);
    all->addLayout(choice);
    all->addLayout(foot);
    // The tabs need different widths.
    all->setSizeConstraint(QLayout::SetFixedSize);

    connect(TabStrip1_, &QTabBar::currentChanged, this,
            guarded("TabStrip1_Click", "frmPalette",
                    [this](int index) { chooser_.TabStrip_Click(ChooserTab{index + 1}); }));
    connectPictures();
    changed_ = chooser_.changed.connect([this] { showState(); });
    language_ = context.languageChanged.connect([this] {
        chooser_.retranslate();
        retranslate();
    });
    retranslate();
    screen_->probe([this](bool works) {
        screenWorks_ = works;
        retranslate();
    });
    (chooser_.state().Picture1 ? static_cast<QWidget*>(Picture1_) : Picture2_)->setFocus();
}

frmPalette::~frmPalette() {
    // The focus leaves the fields only after the chooser is gone.
    for (NumberBox* field : txt_) {
        field->left = nullptr;
    }
}

void frmPalette::buildPictures() {
    Picture1_ = new SwatchGrid("Picture1", kPalette);
    picVoisines_ = named(new QWidget, "picVoisines");
    corners_ = new SwatchGrid("Carre261", kCorners);
    nearest_ = new SwatchGrid("Carre269", kNearest);
    Picture2_ = new ColourField("Picture2", QSize(kHueFieldWidth, kHueFieldHeight),
                                ColourField::Mark::cross);
    strip_ = new ColourField("sldLum", QSize(kStrip, kHueFieldHeight), ColourField::Mark::row);
    lblCouleurInitiale_ = new SwatchGrid("lblCouleurInitiale", kChoice);
    lblCouleurChoisie_ = new SwatchGrid("lblCouleurChoisie", kChoice);
    lblCouleurChoisie_->setFocusPolicy(Qt::NoFocus);
    recent_ = new SwatchGrid("lblRecente", kRecent);
    lblCouleurTexte_->setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void frmPalette::connectPictures() {
    const auto handler = [](const char* name, auto action) {
        return guarded(name, "frmPalette", std::move(action));
    };
    Picture1_->chosen =
        handler("Carré_Click", [this](int index) { chooser_.Carré_Click(index + 1); });
    Picture1_->moved = handler("Picture1_KeyDown", [this](int columns, int rows) {
        chooser_.Picture1_KeyDown(columns, rows);
    });
    Picture1_->setSwatches(paletteSwatches());
    corners_->chosen = handler(
        "Carré_Click", [this](int index) { chooser_.Carré_Click(kFirstNeighbour + index); });
    nearest_->setFirstChoice(1);
    nearest_->chosen =
        handler("Carré_Click", [this](int index) { chooser_.Carré_Click(kChosenSwatch + index); });
    recent_->chosen = handler("lblRecente_Click", [this](int index) {
        chooser_.recent_Click(static_cast<std::size_t>(index));
    });
    lblCouleurInitiale_->chosen = handler(
        "lblCouleurInitiale_Click", [this](int /*index*/) { chooser_.lblCouleurInitiale_Click(); });
    Picture2_->pressed = handler("Picture2_MouseDown", [this](QPoint at) {
        chooser_.Picture2_MouseDown({at.x(), at.y()});
    });
    Picture2_->moved = handler("Picture2_KeyDown", [this](int columns, int rows) {
        chooser_.Picture2_KeyDown(columns, rows);
    });
    strip_->pressed =
        handler("sldLum_MouseDown", [this](QPoint at) { chooser_.strip_MouseDown(at.y()); });
    strip_->moved = handler("sldLum_KeyDown",
                            [this](int /*columns*/, int rows) { chooser_.strip_KeyDown(rows); });
}

void frmPalette::buildFields() {
    picHLSRGB_ = named(new QWidget, "picHLSRGB");
    for (std::size_t i = 0; i < kChooserFields; ++i) {
        const auto field = static_cast<ChooserField>(i);
        txt_[i] = new NumberBox(kFieldNames[i], maximumOf(field));
        txt_[i]->typed = [this, field](const std::string& text) {
            chooser_.txt_Change(field, text);
        };
        txt_[i]->left = [this, field] { chooser_.txt_LostFocus(field); };
        lbl_[i] = new QLabel;
        lbl_[i]->setBuddy(txt_[i]);
    }
}

void frmPalette::buildButtons() {
    picPicker_ = named(new QPushButton(icon("dropper"), QString()), "picPicker");
    picPicker_->setEnabled(false);
    cmdAutres_ = named(new QPushButton, "cmdAutres");
    cmdOK_ = named(new QPushButton, "cmdOK");
    cmdAnnuler_ = named(new QPushButton, "cmdAnnuler");
    cmdOK_->setDefault(true);
    connect(picPicker_, &QPushButton::clicked, this,
            guarded("picPicker_Click", "frmPalette", [this] { picPicker_Click(); }));
    connect(cmdAutres_, &QPushButton::clicked, this,
            guarded("cmdAutres_Click", "frmPalette", [this] { cmdAutres_Click(); }));
    connect(cmdOK_, &QPushButton::clicked, this,
            guarded("cmdOK_Click", "frmPalette", [this] { cmdOK_Click(); }));
    connect(cmdAnnuler_, &QPushButton::clicked, this,
            guarded("cmdAnnuler_Click", "frmPalette", [this] { reject(); }));
}

QVBoxLayout* frmPalette::palettePanel() {
    auto* row = new QHBoxLayout(picVoisines_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addLayout(captioned(lblVoisines_, corners_));
    row->addSpacing(kBetweenGroups);
    row->addLayout(captioned(lblProche_, nearest_));
    row->addStretch();
    auto* panel = column(10);
    panel->addWidget(Picture1_);
    panel->addWidget(picVoisines_);
    return panel;
}

QVBoxLayout* frmPalette::fieldPanel() {
    auto* pictures = new QHBoxLayout;
    pictures->setSpacing(8);
    pictures->addWidget(Picture2_);
    pictures->addWidget(strip_);
    auto* grid = new QGridLayout(picHLSRGB_);
    grid->setContentsMargins(3, 0, 0, 0);
    grid->setHorizontalSpacing(8);
    constexpr int kRows = 3;
    for (std::size_t i = 0; i < kChooserFields; ++i) {
        const int row = static_cast<int>(i) % kRows;
        const int group = static_cast<int>(i) / kRows * 3;
        grid->addWidget(lbl_[i], row, group);
        grid->addWidget(txt_[i], row, group + 1);
    }
    grid->setColumnMinimumWidth(2, 2 * kBetweenGroups);
    grid->setColumnStretch(5, 1);
    auto* panel = column(10);
    panel->addLayout(pictures);
    panel->addWidget(picHLSRGB_);
    return panel;
}

// The colours before and now touch each other, so that the eye compares them.
QVBoxLayout* frmPalette::choicePanel() {
    auto* pair = new QWidget;
    const QSize one = lblCouleurInitiale_->sizeHint();
    pair->setFixedSize(2 * one.width() - 2 * SwatchGrid::kMargin, one.height());
    lblCouleurChoisie_->setParent(pair);
    lblCouleurInitiale_->setParent(pair);
    lblCouleurInitiale_->resize(one);
    lblCouleurChoisie_->resize(one);
    lblCouleurChoisie_->move(pair->width() - one.width(), 0);
    auto* row = new QWidget;
    auto* cells = new QHBoxLayout(row);
    cells->setContentsMargins(0, 0, 0, 0);
    cells->addWidget(pair);
    cells->addWidget(lblCouleurTexte_);
    return captioned(lblChoix_, row);
}

void frmPalette::retranslate() {
    const Traduction& t = context_.traduction;
    setWindowTitle(toQt(t.Trad("Palette", "Choisir une couleur", "frmPalette")));
    TabStrip1_->setTabText(0, toQt(t.Trad("Palette", "Séries 60", "TabStrip1")));
    TabStrip1_->setTabText(1, toQt(t.Trad("Palette", "16 bits", "TabStrip2")));
    TabStrip1_->setTabText(2, toQt(t.Trad("Palette", "Tout", "TabStrip3")));
    TabStrip1_->setAccessibleName(windowTitle());
    const std::array<std::string, kChooserFields> captions{
        t.Trad("Palette", "Rouge", "lblRed"),      t.Trad("Palette", "Vert", "lblGreen"),
        t.Trad("Palette", "Bleu", "lblBlue"),      t.Trad("Palette", "Teinte", "lblHue"),
        t.Trad("Palette", "Saturation", "lblSat"), t.Trad("Palette", "Luminosité", "lblLum")};
    for (std::size_t i = 0; i < kChooserFields; ++i) {
        lbl_[i]->setText(toQt(captions[i]));
        txt_[i]->setAccessibleName(toQt(captions[i]));
    }
    lblVoisines_->setText(toQt(t.Trad("Palette", "Couleurs Garmin voisines", "lblVoisines")));
    lblProche_->setText(toQt(t.Trad("Palette", "La plus proche", "lblProche")));
    lblRecentes_->setText(toQt(t.Trad("Palette", "Couleurs récentes", "lblRecentes")));
    corners_->setAccessibleName(lblVoisines_->text());
    nearest_->setAccessibleName(lblProche_->text());
    recent_->setAccessibleName(lblRecentes_->text());
    Picture1_->setAccessibleName(
        toQt(t.Trad("Palette", "Palette des séries eTrex et 60", "Picture1")));
    Picture2_->setAccessibleName(toQt(t.Trad("Palette", "Teinte et saturation", "Picture2")));
    strip_->setAccessibleName(toQt(captions.back()));
    lblCouleurInitiale_->setAccessibleName(
        toQt(t.Trad("Palette", "Couleur initiale", "lblCouleurInitiale")));
    lblChoix_->setText(toQt(t.Trad("Palette", "Couleur choisie", "lblCouleurChoisie")));
    lblCouleurChoisie_->setAccessibleName(lblChoix_->text());
    const QString pick = toQt(t.Trad("Palette", "Prendre une couleur à l'écran", "picPicker"));
    picPicker_->setAccessibleName(pick);
    picPicker_->setEnabled(screenWorks_.value_or(false));
    picPicker_->setToolTip(screenWorks_.value_or(true)
                               ? pick
                               : toQt(t.Trad("Palette",
                                             "Ce bureau ne laisse aucun programme lire les "
                                             "couleurs de l'écran.",
                                             "picPickerAbsent")));
    cmdAutres_->setText(toQt(t.Trad("Palette", "Autres...", "cmdAutres")));
    cmdOK_->setText(toQt(t.Trad("Palette", "OK", "cmdOK")));
    cmdAnnuler_->setText(toQt(t.Trad("Palette", "Annuler", "cmdAnnuler")));
    showState();
}

void frmPalette::showState() {
    const ChooserState& state = chooser_.state();
    if (std::exchange(picking_, state.picking) && !state.picking) {
        screen_->giveUp();
    }
    palette_->setVisible(state.Picture1);
    picVoisines_->setVisible(state.picVoisines);
    field_->setVisible(state.Picture2);
    picHLSRGB_->setVisible(state.picHLSRGB);
    Picture1_->setFramed(state.framed - 1);
    const auto nearest = state.voisines.begin() + (kChosenSwatch - kFirstNeighbour);
    corners_->setSwatches({state.voisines.begin(), nearest});
    nearest_->setSwatches({nearest, state.voisines.end()});
    if (state.Picture2) {
        Picture2_->setPicture(toQImage(chooser_.Picture2()));
        Picture2_->setMark({state.cross.x, state.cross.y});
        strip_->setPicture(toQImage(chooser_.strip()));
        strip_->setMark({0, state.lightnessRow});
        for (std::size_t i = 0; i < kChooserFields; ++i) {
            txt_[i]->show(state.fields[i]);
        }
    }
    const std::string& text = state.lblCouleurChoisieTip;
    lblCouleurTexte_->setText(toQt(text));
    Picture2_->setAccessibleDescription(toQt(text));
    lblCouleurChoisie_->setSwatches({{state.colour, text, false}});
    lblCouleurInitiale_->setSwatches(
        {{state.CouleurInitiale,
          fromQt(lblCouleurInitiale_->accessibleName()) + " : " + colourText(state.CouleurInitiale),
          false}});
    // Under the colour field there is room for all of them in one row.
    const bool wide = state.Picture1 && state.Picture2;
    choice_->setMinimumWidth(wide ? palette_->sizeHint().width() : 0);
    recent_->setColumns(wide ? static_cast<int>(kRecentColours) : kRecent.columns);
    recent_->setSwatches(state.recent);
    recent_->setVisible(!state.recent.empty());
    lblRecentes_->setVisible(!state.recent.empty());
}

void frmPalette::cmdAutres_Click() {
    chooser_.picPicker_End(std::nullopt);
    auto* dialog = new QColorDialog(QColor::fromRgb(toQRgb(chooser_.state().colour)), this);
    dialog->setObjectName(QStringLiteral("dlgCouleur"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(windowTitle());
    connect(dialog, &QColorDialog::colorSelected, this,
            guarded("cmdAutres_Click", "frmPalette", [this](const QColor& colour) {
                chooser_.cmdAutres_Click(toCouleur(colour.rgb()));
            }));
    dialog->open();
}

void frmPalette::picPicker_Click() {
    chooser_.picPicker_Click();
    screen_->pick(
        *this, [this](Couleur pixel) { chooser_.Timer1_Timer(pixel); },
        [this](std::optional<Couleur> picked) {
            chooser_.picPicker_End(picked);
            activateWindow();
        });
}

void frmPalette::cmdOK_Click() {
    CouleurChoisie_ = chooser_.cmdOK_Click();
    accept();
}

void frmPalette::reject() {
    chooser_.cmdAnnuler_Click();
    QDialog::reject();
}

// Escape ends a look at the screen first.
void frmPalette::keyPressEvent(QKeyEvent* event) {
    if (chooser_.state().picking && event->matches(QKeySequence::Cancel)) {
        chooser_.picPicker_End(std::nullopt);
    } else {
        QDialog::keyPressEvent(event);
    }
}

void chooseColour(QWidget* parent, AppContext& context, std::int32_t colour,
                  std::function<void(std::int32_t)> chosen) {
    auto* window = new frmPalette(parent, context, {colour, {}, ChooserTab::all});
    window->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(window, &QDialog::accepted, window,
                     guarded("cmdOK_Click", "frmPalette", [window, chosen = std::move(chosen)] {
                         if (const auto colour = window->CouleurChoisie()) {
                             chosen(*colour);
                         }
                     }));
    window->open();
}

}  // namespace quillmark
