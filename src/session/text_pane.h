// The text control as the session sees it: the window's own widget, or a string in tests.
#pragma once

#include <string>

namespace quillmark {

class TextPane {
  public:
    virtual ~TextPane() = default;
    // The whole text, UTF-8, lines ended by CR LF.
    [[nodiscard]] virtual std::string text() const = 0;
    // The text differs from what `show` put there last, or `rebase` named.
    [[nodiscard]] virtual bool isEdited() const = 0;
    // It stands in the window rather than the icon sheet.
    [[nodiscard]] virtual bool isShown() const = 0;
    // Puts a text there that counts as unedited; only lines that differ are touched, and caret
    // line and scroll stay where they can.
    virtual void show(const std::string& text) = 0;
    // What stands there is compared with this text from now on.
    virtual void rebase(const std::string& text) = 0;
    // Marks lines (from 0) and brings the first into sight without taking the focus.
    virtual void showLines(int firstLine, int lastLine) = 0;
    virtual void unmark() = 0;
    // False without a document, and while work runs that the text mustn't change under.
    virtual void setEditable(bool editable) = 0;
};

}  // namespace quillmark
