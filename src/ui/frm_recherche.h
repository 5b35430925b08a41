// Search and replace in the text view, beside the main window and not in front of it.
#pragma once

#include <QDialog>

#include "core/signal.h"
#include "ui/app_context.h"
#include "views/text_search.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace quillmark {

class frmRecherche : public QDialog {
  public:
    frmRecherche(QWidget* parent, AppContext& context, SearchedText& text);

    // Takes the selection as the text to find and comes to the front.
    void open() override;

  private:
    void build();
    void connectControls();
    void retranslate();
    void showState();

    AppContext& context_;
    TextSearch search_;
    QLabel* lblRechercher_;
    QLabel* lblRemplacer_;
    QLineEdit* Text1_;
    QLineEdit* txtRemplacer_;
    QCheckBox* chkCasse_;
    QCheckBox* chkMotEntier_;
    QPushButton* cmdSuivant_;
    QPushButton* cmdRemplacer_;
    QPushButton* cmdRemplacerTout_;
    QPushButton* cmdAnnuler_;
    Connection language_;
    Connection facts_;
};

}  // namespace quillmark
