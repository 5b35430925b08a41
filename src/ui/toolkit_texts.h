// The toolkit's own texts (menus of fields, its file dialog) in the language of the program, as
// far as its translations are installed.
#pragma once

#include <QTranslator>

#include "core/signal.h"
#include "ui/app_context.h"

namespace quillmark {

class ToolkitTexts {
  public:
    // Follows changes of the language as long as it lives.
    explicit ToolkitTexts(AppContext& context);
    ~ToolkitTexts();
    ToolkitTexts(const ToolkitTexts&) = delete;
    ToolkitTexts& operator=(const ToolkitTexts&) = delete;

  private:
    void load();

    AppContext& context_;
    QTranslator translator_;
    Connection language_;
};

}  // namespace quillmark
