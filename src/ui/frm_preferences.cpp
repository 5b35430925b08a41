#include "ui/frm_preferences.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "bitmap/system_colours.h"
#include "core/label_languages.h"
#include "paint/qt_image.h"
#include "ui/colour_square.h"
#include "ui/guard.h"
#include "ui/qt_text.h"

namespace quillmark {
namespace {

constexpr int kSwatch = 18;  // logical pixels

template <typename Control>
Control* named(Control* control, const char* name) {
    control->setObjectName(QLatin1String(name));
    return control;
}

// A check box whose long text is broken into lines: a click on the text is one on the box.
class CaptionOfBox : public QLabel {
  public:
    CaptionOfBox(const QString& text, QCheckBox& box) : QLabel(text), box_(box) {
        setWordWrap(true);
        setBuddy(&box);
    }

  protected:
    // Left to itself the label passes the press on, and the release never comes.
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
            box_.click();
        }
    }

  private:
    QCheckBox& box_;
};

QLabel* captionOf(QWidget* control, const std::string& text) {
    auto* caption = new QLabel(toQt(text));
    caption->setBuddy(control);
    control->setAccessibleName(toQt(text));
    return caption;
}

void addLanguages(QComboBox& box, const Traduction& traduction) {
    for (const std::string& name : TableLangues(traduction)) {
        box.addItem(toQt(name));
    }
}

}  // namespace

frmPreferences::frmPreferences(QWidget* parent, AppContext& context, Preferences shown,
                               ChooseColour chooseColour)
    : QDialog(parent),
      context_(context),
      state_(std::move(shown)),
      chooseColour_(std::move(chooseColour)) {
    setObjectName(QStringLiteral("frmPreferences"));
    const Traduction& t = context.traduction;
    setWindowTitle(toQt(t.Trad("Preferences", "Préférences", "lblTitre")));

    auto* left = new QVBoxLayout;
    left->addWidget(mainWindow());
    left->addWidget(activities());
    left->addStretch();
    auto* right = new QVBoxLayout;
    // Room for all rows of languages, so that both columns end alike.
    right->addWidget(editWindow(), 1);
    right->addWidget(formatOfPOI());
    auto* columns = new QHBoxLayout;
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);

    auto* buttons = new QDialogButtonBox;
    auto* ok = named(buttons->addButton(toQt(t.Trad("Preferences", "OK", "cmdOK")),
                                        QDialogButtonBox::AcceptRole),
                     "cmdOK");
    ok->setDefault(true);
    auto* cancel = named(buttons->addButton(toQt(t.Trad("Preferences", "Annuler", "cmdAnnuler")),
                                            QDialogButtonBox::RejectRole),
                         "cmdAnnuler");
    connect(ok, &QPushButton::clicked, this,
            guarded("cmdOK_Click", "frmPreferences", [this] { cmdOK_Click(); }));
    connect(cancel, &QPushButton::clicked, this,
            guarded("cmdAnnuler_Click", "frmPreferences", [this] { reject(); }));

    auto* all = new QVBoxLayout(this);
    all->addLayout(columns, 1);
    all->addWidget(update());
    all->addWidget(buttons);
    all->setContentsMargins(16, 14, 16, 14);
    all->setSpacing(14);
    columns->setSpacing(16);
    for (QVBoxLayout* column : {left, right}) {
        column->setSpacing(14);
    }
    showState();
    // Left to itself the toolkit takes two thirds of a small screen and squeezes the rows.
    resize(sizeHint());
}

QGroupBox* frmPreferences::mainWindow() {
    const Traduction& t = context_.traduction;
    auto* frame =
        named(new QGroupBox(toQt(t.Trad("Preferences", "Fenêtre Principale", "fraMainWindow"))),
              "fraMainWindow");
    auto* opening = new QLabel(toQt(
        t.Trad("Preferences", "A l'ouverture d'un fichier TYP, afficher:", "lblTypeOuverture")));
    opening->setWordWrap(true);
    optOuverture_[0] =
        named(new QRadioButton(toQt(t.Trad("Preferences", "Le texte", "optOuverture0"))),
              "optOuverture0");
    optOuverture_[1] =
        named(new QRadioButton(toQt(t.Trad("Preferences", "Les icônes", "optOuverture1"))),
              "optOuverture1");
    cbbLabels_ = named(new QComboBox, "cbbLabels");
    cbbLabels_->addItems({toQt(t.Trad("Preferences", "Rien", "cbbLabels1")),
                          toQt(t.Trad("Preferences", "Texte seul", "cbbLabels2")),
                          toQt(t.Trad("Preferences", "Type seul", "cbbLabels3")),
                          toQt(t.Trad("Preferences", "Type et texte", "cbbLabels4"))});
    cbbPolice_ = named(new QComboBox, "cbbPolice");
    cbbPolice_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    cbbPolice_->setMinimumContentsLength(16);
    txtTaille_ = named(new QLineEdit, "txtTaille");
    cbbLangues_ = named(new QComboBox, "cbbLangues");
    addLanguages(*cbbLangues_, t);

    auto* form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    const auto row = [form](QWidget* control, const std::string& text) {
        form->addRow(captionOf(control, text), control);
    };
    row(cbbLabels_, t.Trad("Preferences", "Type d'affichage", "lblAffichage"));
    row(cbbPolice_, t.Trad("Preferences", "Police des labels", "lblPolice"));
    row(txtTaille_, t.Trad("Preferences", "Taille", "lblTaille"));
    row(cbbLangues_, t.Trad("Preferences", "Langue des labels affichés", "lblLangue"));
    auto* column = new QVBoxLayout(frame);
    column->addWidget(opening);
    column->addWidget(optOuverture_[0]);
    column->addWidget(optOuverture_[1]);
    column->addSpacing(column->contentsMargins().top());
    column->addLayout(form);
    return frame;
}

QGroupBox* frmPreferences::editWindow() {
    const Traduction& t = context_.traduction;
    auto* frame =
        named(new QGroupBox(toQt(t.Trad("Preferences", "Fenêtre Edition", "fraEditWindow"))),
              "fraEditWindow");
    cbbNombre_ = named(new QComboBox, "cbbNombre");
    for (int rows = 0; rows <= static_cast<int>(cbbLangue_.size()); ++rows) {
        cbbNombre_->addItem(QString::number(rows));
    }
    auto* form = new QFormLayout(frame);
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    const std::string caption =
        t.Trad("Preferences", "Nombre de langues par défaut", "lblNombreLangues");
    form->addRow(captionOf(cbbNombre_, caption), cbbNombre_);
    const std::string language = t.Trad("Preferences", "Langue", "lblLangueRang");
    for (std::size_t i = 0; i < cbbLangue_.size(); ++i) {
        cbbLangue_[i] = new QComboBox;
        cbbLangue_[i]->setObjectName(QStringLiteral("cbbLangue%1").arg(i));
        addLanguages(*cbbLangue_[i], t);
        captions_[i] = captionOf(cbbLangue_[i], language + ' ' + std::to_string(i + 1));
        form->addRow(captions_[i], cbbLangue_[i]);
    }
    connect(cbbNombre_, &QComboBox::activated, this,
            guarded("cbbNombre_Click", "frmPreferences", [this](int index) {
                state_.cbbNombre = index;
                state_.affiche_langue();
                showLanguages();
            }));
    return frame;
}

QGroupBox* frmPreferences::activities() {
    const Traduction& t = context_.traduction;
    auto* frame = named(new QGroupBox(toQt(t.Trad("Preferences", "Couleurs de l'Active Routing",
                                                  "fraActiveRouting"))),
                        "fraActiveRouting");
    const std::array<std::string, 6> names{t.Trad("Demarrage", "Marche à pied", "Activity1"),
                                           t.Trad("Demarrage", "Randonnée", "Activity2"),
                                           t.Trad("Demarrage", "Alpinisme", "Activity3"),
                                           t.Trad("Demarrage", "Vélo", "Activity4"),
                                           t.Trad("Demarrage", "Cyclotourisme", "Activity5"),
                                           t.Trad("Demarrage", "VTT", "Activity6")};
    auto* grid = new QGridLayout(frame);
    for (std::size_t i = 0; i < names.size(); ++i) {
        auto* button = new QPushButton(withoutAccessKey(toQt(names[i])));
        button->setObjectName(QStringLiteral("lblActiveRoutingColor%1").arg(i));
        button->setStyleSheet(QStringLiteral("text-align: left; padding: 4px 8px;"));
        lblActiveRoutingColor_[i] = button;
        grid->addWidget(button, static_cast<int>(i % 3), static_cast<int>(i / 3));
        connect(button, &QPushButton::clicked, this,
                guarded("lblActiveRoutingColor_Click", "frmPreferences", [this, i] {
                    chooseColour_(this, state_.lblActiveRoutingColor[i],
                                  [self = QPointer(this), i](std::int32_t chosen) {
                                      if (self) {
                                          self->state_.lblActiveRoutingColor[i] = chosen;
                                          self->showColour(i);
                                      }
                                  });
                }));
    }
    return frame;
}

QWidget* frmPreferences::formatOfPOI() {
    const Traduction& t = context_.traduction;
    // The frame's own title can't be broken into lines, so the long sentence stands above it.
    auto* frame = named(new QGroupBox, "fraFormatPOI");
    const QString sentence = toQt(t.Trad(
        "Preferences", "Format d'écriture du type des POI dans le fichier txt", "fraFormatPOI"));
    auto* caption = new QLabel(sentence);
    caption->setWordWrap(true);
    frame->setAccessibleName(sentence);
    optFormatPOI_[0] =
        named(new QRadioButton(QStringLiteral("Type=0x10d\nSubType=0x1a")), "optFormatPOI0");
    optFormatPOI_[1] = named(new QRadioButton(QStringLiteral("Type=0x10d1a")), "optFormatPOI1");
    chkMasquerTextePOI_ = named(new QCheckBox, "chkMasquerTextePOI");
    const QString hide = toQt(t.Trad(
        "Preferences", "Désactiver l'écriture des couleurs dans le texte des POI True Colors",
        "chkMasquerTextePOI"));
    chkMasquerTextePOI_->setAccessibleName(hide);
    auto* hideCaption = new CaptionOfBox(hide, *chkMasquerTextePOI_);
    auto* hiding = new QHBoxLayout;
    hiding->addWidget(chkMasquerTextePOI_, 0, Qt::AlignTop);
    hiding->addWidget(hideCaption, 1);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(optFormatPOI_[0]);
    column->addWidget(optFormatPOI_[1]);
    column->addSpacing(column->contentsMargins().top());
    column->addLayout(hiding);
    auto* titled = new QWidget;
    auto* all = new QVBoxLayout(titled);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(2);
    all->addWidget(caption);
    all->addWidget(frame);
    return titled;
}

QGroupBox* frmPreferences::update() {
    const Traduction& t = context_.traduction;
    auto* frame = named(new QGroupBox(toQt(t.Trad("Preferences", "Mise à jour", "fraMiseAJour"))),
                        "fraMiseAJour");
    chkUpdate_ =
        named(new QCheckBox(toQt(t.Trad(
                  "Preferences",
                  "Vérifier automatiquement la présence de mise à jour au démarrage de Quillmark.",
                  "chkUpdate"))),
              "chkUpdate");
    if (context_.settings.text(keys::kMajAdresse).empty()) {
        chkUpdate_->setEnabled(false);
        chkUpdate_->setToolTip(toQt(
            t.Trad("Preferences", "Aucune adresse de mise à jour n'est définie.", "chkUpdateTip")));
    }
    auto* column = new QVBoxLayout(frame);
    column->addWidget(chkUpdate_);
    return frame;
}

void frmPreferences::showState() {
    const Traduction& t = context_.traduction;
    optOuverture_[state_.optOuvertureTexte ? 0 : 1]->setChecked(true);
    cbbLabels_->setCurrentIndex(state_.cbbLabels);
    const QString own = toQt(std::string(kOwnFont));
    cbbPolice_->addItem(
        own + QLatin1Char(' ') + toQt(t.Trad("Preferences", "(par défaut)", "cbbPoliceDefaut")),
        own);
    for (const QString& family : QFontDatabase::families()) {
        // An installed font of that name isn't what the name stands for.
        if (family != own) {
            cbbPolice_->addItem(family, family);
        }
    }
    const QString police = toQt(state_.cbbPolice);
    if (cbbPolice_->findData(police) < 0) {
        // A font that isn't installed stays chosen by its name.
        cbbPolice_->addItem(police, police);
    }
    cbbPolice_->setCurrentIndex(cbbPolice_->findData(police));
    txtTaille_->setText(toQt(state_.txtTaille));
    cbbLangues_->setCurrentIndex(state_.cbbLangues);
    cbbNombre_->setCurrentIndex(state_.cbbNombre);
    showLanguages();
    for (std::size_t i = 0; i < lblActiveRoutingColor_.size(); ++i) {
        showColour(i);
    }
    chkUpdate_->setChecked(state_.chkUpdate);
    optFormatPOI_[state_.optFormatPOIDeux ? 0 : 1]->setChecked(true);
    chkMasquerTextePOI_->setChecked(state_.chkMasquerTextePOI);
}

void frmPreferences::showLanguages() {
    for (std::size_t i = 0; i < cbbLangue_.size(); ++i) {
        cbbLangue_[i]->setCurrentIndex(state_.cbbLangue[i]);
        const bool shown = static_cast<int>(i) < state_.cbbNombre;
        for (QWidget* part : {static_cast<QWidget*>(cbbLangue_[i]), captions_[i]}) {
            // Keeps its place while hidden, so that the window doesn't jump.
            QSizePolicy policy = part->sizePolicy();
            policy.setRetainSizeWhenHidden(true);
            part->setSizePolicy(policy);
            part->setVisible(shown);
        }
    }
}

void frmPreferences::showColour(std::size_t i) {
    lblActiveRoutingColor_[i]->setIcon(
        colourSquare(QColor::fromRgb(toQRgb(ResoudreCouleur(state_.lblActiveRoutingColor[i]))),
                     {kSwatch, kSwatch}, palette()));
}

void frmPreferences::takeState() {
    state_.optOuvertureTexte = optOuverture_[0]->isChecked();
    state_.cbbLabels = cbbLabels_->currentIndex();
    state_.cbbPolice = fromQt(cbbPolice_->currentData().toString());
    state_.txtTaille = fromQt(txtTaille_->text());
    state_.cbbLangues = cbbLangues_->currentIndex();
    state_.cbbNombre = cbbNombre_->currentIndex();
    for (std::size_t i = 0; i < cbbLangue_.size(); ++i) {
        state_.cbbLangue[i] = cbbLangue_[i]->currentIndex();
    }
    state_.chkUpdate = chkUpdate_->isChecked();
    state_.optFormatPOIDeux = optFormatPOI_[0]->isChecked();
    state_.chkMasquerTextePOI = chkMasquerTextePOI_->isChecked();
}

void frmPreferences::cmdOK_Click() {
    takeState();
    accept();
}

}  // namespace quillmark
