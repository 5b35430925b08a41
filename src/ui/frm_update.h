// Tells whether a newer version is out, and takes the browser to it.
#pragma once

#include <QDialog>

#include "core/signal.h"
#include "ui/app_context.h"
#include "views/update_check.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace quillmark {

class frmUpdate : public QDialog {
  public:
    // Fetches the note of the settings' address at once.
    frmUpdate(QWidget* parent, AppContext& context);

  private:
    void retranslate();
    void cmdTelecharger_Click() const;

    AppContext& context_;
    std::optional<UpdateCheck> check_;  // nothing until it is there
    QLabel* lblResultat_;
    QLabel* lblVersion_;
    QProgressBar* prgRecherche_;
    QPushButton* cmdTelecharger_;
    QPushButton* cmdFermer_;
    Connection language_;
};

// After the first paint, when the settings ask for it: one line where there is news.
void checkForUpdateAtStart(QObject* owner, AppContext& context);

}  // namespace quillmark
