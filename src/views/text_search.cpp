#include "views/text_search.h"

#include "text/utf8.h"

namespace quillmark {

SearchOptions TextSearch::options() const {
    return {state.chkMotEntier, state.chkCasse};
}

// Lines of what is looked for are parted as the view's are.
std::u16string TextSearch::wanted() const {
    std::u16string text = utf8ToUtf16(state.Text1);
    for (std::size_t at = 0; (at = text.find_first_of(u"\r\n", at)) != std::u16string::npos; ++at) {
        const bool both = text.compare(at, 2, u"\r\n") == 0;
        text.replace(at, both ? 2 : 1, 1, u'\u2029');
    }
    return text;
}

void TextSearch::open() {
    text_.bringIntoSight();
    const TextRange selection = text_.selection();
    const std::u16string selected = text_.content().substr(selection.start, selection.length);
    if (selected.empty() || selected.find_first_of(u"\n\u2029") != std::u16string::npos) {
        return;
    }
    state.Text1 = utf16ToUtf8(selected);
    searching_ = true;
}

void TextSearch::Text1_Change(const std::string& typed) {
    if (typed == state.Text1) {
        return;
    }
    state.Text1 = typed;
    searching_ = false;
    text_.select({});
}

bool TextSearch::recherche() {
    const TextRange selection = text_.selection();
    // Without a selection nothing was found here yet, or it has just been replaced.
    const bool stepOn = searching_ && selection.length > 0;
    searching_ = true;
    const auto match = quillmark::recherche(text_.content(), wanted(),
                                            selection.start + (stepOn ? 1 : 0), options());
    if (match) {
        text_.select(*match);
    }
    return match.has_value();
}

void TextSearch::cmdSuivant_Click() {
    if (!canSearch()) {
        return;
    }
    text_.bringIntoSight();
    if (recherche()) {
        return;
    }
    const std::string notFound =
        traduction_.Trad("Recherche", "Impossible de trouver", "msgImpossible") + "  \"" +
        state.Text1 + "\"";
    const std::string again = traduction_.Trad(
        "Recherche", "Reprendre la recherche depuis le début du fichier?", "msgReprendre");
    if (dialogues_.AfficheMessage(notFound + "\n\n" + again,
                                  MessageStyle::yesNo | MessageStyle::question,
                                  {}) != Answer::yes) {
        return;
    }
    text_.select({});
    searching_ = false;
    if (!recherche()) {
        dialogues_.AfficheMessage(notFound, MessageStyle::ok | MessageStyle::information, {});
    }
}

void TextSearch::cmdRemplacer_Click() {
    if (!canSearch()) {
        return;
    }
    text_.bringIntoSight();
    const TextRange selection = text_.selection();
    if (selection.length == 0 || !text_.isEditable() ||
        !isMatch(text_.content(), selection, wanted(), options())) {
        cmdSuivant_Click();
        return;
    }
    text_.replace({selection}, utf8ToUtf16(state.txtRemplacer));
}

void TextSearch::cmdRemplacerTout_Click() {
    text_.bringIntoSight();
    if (!canSearch() || !text_.isEditable()) {
        return;
    }
    const std::vector<TextRange> matches = rechercheTout(text_.content(), wanted(), options());
    if (!matches.empty()) {
        text_.replace(matches, utf8ToUtf16(state.txtRemplacer));
    }
    dialogues_.AfficheMessage(
        std::to_string(matches.size()) + " " +
            traduction_.Trad("Recherche", "remplacements effectués", "msgremplacements"),
        MessageStyle::ok | MessageStyle::information,
        traduction_.Trad("Recherche", "Terminé", "msgTermine"));
}

}  // namespace quillmark
