// Earlier states of the text, one at a time.
#pragma once

#include <QDialog>

#include "core/signal.h"
#include "ui/app_context.h"
#include "views/backup_browser.h"

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace quillmark {

class frmSauvegardetxt : public QDialog {
  public:
    frmSauvegardetxt(QWidget* parent, AppContext& context);

  private:
    void build();
    void connectControls();
    void retranslate();
    void showState();
    void cmdSessionPrecedente_Click(bool wanted);
    void showEarlierRun(const TaskEnd& end, std::vector<BackupPlace> places);

    AppContext& context_;
    BackupBrowser browser_;
    std::filesystem::path earlier_;
    QLabel* lblTitre_;
    QPlainTextEdit* txtSauvegarde_;
    QString shown_;  // in it
    QPushButton* cmdPrecedent_;
    QPushButton* cmdSuivant_;
    QPushButton* cmdSessionPrecedente_;
    QPushButton* cmdCopier_;
    QPushButton* cmdFermer_;
    Connection language_;
    Connection kept_;
};

}  // namespace quillmark
