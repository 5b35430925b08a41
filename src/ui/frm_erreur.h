// The journal of messages, beside the document and not in front of it.
#pragma once

#include <QDialog>
#include <functional>

#include "core/signal.h"
#include "ui/app_context.h"
#include "views/journal_list.h"

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTreeView;

namespace quillmark {

class JournalModel;

class frmErreur : public QDialog {
  public:
    frmErreur(QWidget* parent, AppContext& context);

    // Lines of the text view, from 1.
    std::function<void(int)> goToLine;
    std::function<void(const ObjectRef&)> goToObject;

    // Reads the journal again and comes to the front.
    void open() override;

  private:
    void retranslate();
    void refresh();
    void showPath();
    void go(int row);

    AppContext& context_;
    JournalList list_;
    unsigned shownVersion_ = 0;
    JournalModel* model_;
    QLabel* lblErreurs_;
    QLabel* lblFichier_;
    QTreeView* lstMessages_;
    QPlainTextEdit* txtErreurs_;
    QCheckBox* chkInverser_;
    QPushButton* cmdCopy_;
    QPushButton* cmdFermer_;
    Connection language_;
    Connection facts_;
};

}  // namespace quillmark
