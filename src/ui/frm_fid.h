// The maps that have a FID: a list to look through and to copy.
#pragma once

#include <QDialog>
#include <string>
#include <vector>

#include "core/signal.h"
#include "ui/app_context.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace quillmark {

class frmFID : public QDialog {
  public:
    frmFID(QWidget* parent, AppContext& context, const std::string& FID,
           const std::vector<std::string>& names);

  private:
    void retranslate();
    void filter(const QString& text);
    // The selected names, all that are shown without a selection.
    void copy();

    AppContext& context_;
    QString FID_;
    QLineEdit* txtFiltreFID_;
    QListWidget* lstFIDs_;
    QPushButton* cmdCopier_;
    QPushButton* cmdFermer_;
    Connection language_;
};

}  // namespace quillmark
