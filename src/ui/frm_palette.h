// The window in which the user chooses a colour.
#pragma once

#include <QDialog>
#include <array>
#include <memory>
#include <optional>

#include "editors/colour_chooser.h"
#include "ui/app_context.h"
#include "ui/screen_colour.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QTabBar;
class QVBoxLayout;

namespace quillmark {

class ColourField;
class NumberBox;
class SwatchGrid;

class frmPalette : public QDialog {
  public:
    frmPalette(QWidget* parent, AppContext& context, ChooserRequest request,
               std::unique_ptr<ScreenColour> screen = screenColour());
    ~frmPalette() override;

    // After the window closed with OK.
    [[nodiscard]] std::optional<Couleur> CouleurChoisie() const { return CouleurChoisie_; }

    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void buildPictures();
    void buildFields();
    void buildButtons();
    [[nodiscard]] QVBoxLayout* palettePanel();
    [[nodiscard]] QVBoxLayout* fieldPanel();
    [[nodiscard]] QVBoxLayout* choicePanel();
    void connectPictures();
    void retranslate();
    void showState();
    void cmdAutres_Click();
    void picPicker_Click();
    void cmdOK_Click();

    AppContext& context_;
    ColourChooser chooser_;
    std::unique_ptr<ScreenColour> screen_;
    std::optional<Couleur> CouleurChoisie_;
    std::optional<bool> screenWorks_;  // nothing: not known yet
    bool picking_ = false;

    QTabBar* TabStrip1_;
    QWidget* palette_;  // `Picture1` and `picVoisines`
    SwatchGrid* Picture1_;
    QWidget* picVoisines_;
    SwatchGrid* corners_;
    SwatchGrid* nearest_;
    QWidget* field_;  // `Picture2` and its strip, and `picHLSRGB`
    ColourField* Picture2_;
    ColourField* strip_;
    QWidget* picHLSRGB_;
    std::array<NumberBox*, kChooserFields> txt_{};
    std::array<QLabel*, kChooserFields> lbl_{};
    QWidget* choice_;
    QLabel* lblChoix_;
    SwatchGrid* lblCouleurInitiale_;
    SwatchGrid* lblCouleurChoisie_;
    QLabel* lblCouleurTexte_;
    QLabel* lblVoisines_;
    QLabel* lblProche_;
    QLabel* lblRecentes_;
    SwatchGrid* recent_;
    QPushButton* picPicker_;
    QPushButton* cmdAutres_;
    QPushButton* cmdOK_;
    QPushButton* cmdAnnuler_;
    Connection changed_;
    Connection language_;
};

// Asks for a colour in place of `colour`; `chosen` gets it unless the user gives up.
void chooseColour(QWidget* parent, AppContext& context, std::int32_t colour,
                  std::function<void(std::int32_t)> chosen);

}  // namespace quillmark
