// A text control made of two strings.
#pragma once

#include <string>
#include <utility>

#include "session/text_pane.h"

namespace quillmark::testing {

class FakeTextPane : public TextPane {
  public:
    std::string shown;  // what was put there
    std::string typed;  // what stands there
    bool visible = true;
    bool editable = false;
    int shows = 0;
    std::pair<int, int> marked{-1, -1};

    [[nodiscard]] std::string text() const override { return typed; }
    [[nodiscard]] bool isEdited() const override { return typed != shown; }
    [[nodiscard]] bool isShown() const override { return visible; }
    void show(const std::string& text) override {
        shown = typed = text;
        ++shows;
    }
    void rebase(const std::string& text) override { shown = text; }
    void showLines(int firstLine, int lastLine) override { marked = {firstLine, lastLine}; }
    void unmark() override { marked = {-1, -1}; }
    void setEditable(bool value) override { editable = value; }
    // As a user would: the first `what` becomes `by`.
    void replace(const std::string& what, const std::string& by) {
        typed.replace(typed.find(what), what.size(), by);
    }
};

}  // namespace quillmark::testing
