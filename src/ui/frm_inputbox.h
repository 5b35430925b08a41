// One line of text asked of the user.
#pragma once

#include <QDialog>
#include <string>

#include "core/translation.h"

class QLineEdit;

namespace quillmark {

class frmInputBox : public QDialog {
  public:
    frmInputBox(QWidget* parent, const Traduction& traduction, const std::string& prompt,
                const std::string& titre, const std::string& initial);
    // Empty after `cmdAnnuler`.
    [[nodiscard]] std::string text() const;

  private:
    QLineEdit* Text1_;
};

}  // namespace quillmark
