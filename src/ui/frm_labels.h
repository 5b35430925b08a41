// The special labels, to read and to copy.
#pragma once

#include <QDialog>

#include "ui/app_context.h"

namespace quillmark {

class frmLabels : public QDialog {
  public:
    frmLabels(QWidget* parent, AppContext& context);
};

}  // namespace quillmark
