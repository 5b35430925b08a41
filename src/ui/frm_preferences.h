// The window of the preferences.
#pragma once

#include <QDialog>
#include <array>
#include <functional>
#include <optional>

#include "ui/app_context.h"
#include "views/preferences.h"

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace quillmark {

class frmPreferences : public QDialog {
  public:
    // Asks for a colour in place of the one given, and hands it on unless the user gives up.
    using ChooseColour =
        std::function<void(QWidget*, std::int32_t, std::function<void(std::int32_t)>)>;

    // OK only closes the window; `choices` are then to be stored.
    frmPreferences(QWidget* parent, AppContext& context, Preferences shown,
                   ChooseColour chooseColour);
    [[nodiscard]] const Preferences& choices() const { return state_; }

  private:
    QGroupBox* mainWindow();
    QGroupBox* editWindow();
    QGroupBox* activities();
    QWidget* formatOfPOI();
    QGroupBox* update();
    void showState();
    void showLanguages();
    void showColour(std::size_t i);
    void takeState();
    void cmdOK_Click();

    AppContext& context_;
    Preferences state_;
    ChooseColour chooseColour_;

    std::array<QRadioButton*, 2> optOuverture_{};
    QComboBox* cbbLabels_ = nullptr;
    QComboBox* cbbPolice_ = nullptr;
    QLineEdit* txtTaille_ = nullptr;
    QComboBox* cbbLangues_ = nullptr;
    QComboBox* cbbNombre_ = nullptr;
    std::array<QComboBox*, 4> cbbLangue_{};
    std::array<QWidget*, 4> captions_{};
    std::array<QPushButton*, 6> lblActiveRoutingColor_{};
    std::array<QRadioButton*, 2> optFormatPOI_{};
    QCheckBox* chkMasquerTextePOI_ = nullptr;
    QCheckBox* chkUpdate_ = nullptr;
};

}  // namespace quillmark
