// What the file is and the fields of its header.
#pragma once

#include <QWidget>

#include "ui/app_context.h"
#include "views/document_card.h"

class QComboBox;
class QLabel;

namespace quillmark {

class DigitsEdit;
class ElidedLabel;
class TextButton;

class DocumentCardPanel : public QWidget {
  public:
    explicit DocumentCardPanel(AppContext& context, QWidget* parent = nullptr);

    // A click on what is told of faults.
    std::function<void()> journalRequested;

  private:
    void build();
    void connectControls();
    void retranslate();
    void showState();
    void showFile();
    void showField(HeaderField field);
    void lblNomTyp_Click();
    void lblFID_Click();
    [[nodiscard]] DigitsEdit& edit(HeaderField field) const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    AppContext& context_;
    ElidedLabel* lblNomTyp_;
    ElidedLabel* lblDossier_;
    TextButton* lblErreurs_;
    TextButton* lblAvertissements_;
    ElidedLabel* lblDateCreation_;
    ElidedLabel* lblLongueur_;
    TextButton* lblFID_;
    QLabel* lblProductCode_;
    QLabel* lblCodepage_;
    QLabel* lblHeadersize_;
    DigitsEdit* txtFID_;
    DigitsEdit* txtProductCode_;
    QComboBox* cbbCodepage_;
    QComboBox* cbbHeadersize_;
    std::vector<Connection> connections_;
};

}  // namespace quillmark
