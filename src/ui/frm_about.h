// What the program is, which version of it, and under which licence.
#pragma once

#include <QDialog>

#include "core/signal.h"
#include "ui/app_context.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace quillmark {

class frmAbout : public QDialog {
  public:
    frmAbout(QWidget* parent, AppContext& context);

  private:
    void retranslate();

    AppContext& context_;
    QLabel* lblVersion_;
    QLabel* lblDescription_;
    QLabel* lblLicence_;
    QPlainTextEdit* txtLicence_;
    QPushButton* cmdFermer_;
    Connection language_;
};

}  // namespace quillmark
