// The list of languages to choose from.
#pragma once

#include <QDialog>

#include "ui/app_context.h"
#include "views/language_choice.h"

class QListWidget;
class QPushButton;

namespace quillmark {

class frmLangues : public QDialog {
  public:
    frmLangues(QWidget* parent, AppContext& context);

  private:
    void retranslate();
    void cmdOK_Click();

    AppContext& context_;
    LanguageChoice choice_;
    QListWidget* lstLang_;
    QPushButton* cmdOK_;
    QPushButton* cmdAnnuler_;
    Connection language_;
};

}  // namespace quillmark
