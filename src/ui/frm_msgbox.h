// The program's message box: its buttons speak the program's language, its text can be copied and
// scrolls when it is long.
#pragma once

#include <QDialog>
#include <string>

#include "core/dialogues.h"
#include "core/translation.h"

class QDialogButtonBox;

namespace quillmark {

class frmMsgBox : public QDialog {
  public:
    frmMsgBox(QWidget* parent, const Traduction& traduction, const std::string& message,
              MessageStyle style, const std::string& titre);
    // Close box and Esc are the last button.
    [[nodiscard]] Answer Retour() const { return Retour_; }

  protected:
    // Ctrl+C copies the title and the text.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void addButtons(QDialogButtonBox& box, const Traduction& traduction, MessageStyle style);

    Answer Retour_ = Answer::ok;
};

}  // namespace quillmark
