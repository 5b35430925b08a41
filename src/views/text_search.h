// What `frmRecherche` does: searches and replaces in the text view.
#pragma once

#include <string>
#include <vector>

#include "core/dialogues.h"
#include "core/translation.h"
#include "text/search.h"

namespace quillmark {

// The text control as a search sees it: UTF-16, places are units from 0.
class SearchedText {
  public:
    virtual ~SearchedText() = default;
    // The text view stands in the window afterwards, with its whole text.
    virtual void bringIntoSight() = 0;
    // Lines are parted by U+2029.
    [[nodiscard]] virtual std::u16string content() const = 0;
    [[nodiscard]] virtual TextRange selection() const = 0;
    // Selects and shows.
    virtual void select(const TextRange& range) = 0;
    [[nodiscard]] virtual bool isEditable() const = 0;
    // One undo step. The ranges stand in their order and don't overlap; nothing is selected
    // afterwards, the cursor stands behind the text put in, or stays where several were.
    virtual void replace(const std::vector<TextRange>& ranges, const std::u16string& by) = 0;
};

class TextSearch {
  public:
    // What the window shows, UTF-8.
    struct State {
        std::string Text1;
        std::string txtRemplacer;
        bool chkCasse = false;
        bool chkMotEntier = false;
    };

    TextSearch(SearchedText& text, Dialogues& dialogues, const Traduction& traduction)
        : text_(text), dialogues_(dialogues), traduction_(traduction) {}

    State state;

    // Takes the selection as the text to find if it lies in one line; the search goes on from it.
    void open();
    // Another text is looked for from the top.
    void Text1_Change(const std::string& typed);
    // False without a text to find: `cmdSuivant`, `cmdRemplacer` and `cmdRemplacerTout` do nothing.
    [[nodiscard]] bool canSearch() const { return !state.Text1.empty(); }

    void cmdSuivant_Click();
    // Replaces a selection that is a match, otherwise goes to the next one.
    void cmdRemplacer_Click();
    void cmdRemplacerTout_Click();

  private:
    // The next match becomes the selection.
    bool recherche();
    [[nodiscard]] SearchOptions options() const;
    [[nodiscard]] std::u16string wanted() const;

    SearchedText& text_;
    Dialogues& dialogues_;
    const Traduction& traduction_;
    bool searching_ = false;  // the selection is where the search got to
};

}  // namespace quillmark
