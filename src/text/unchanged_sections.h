// Finds the sections of an edited text that nobody edited, so that their records can be kept as
// they are: text doesn't hold all of a record.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

#include "text/generator.h"

namespace quillmark {

class UnchangedSections {
  public:
    // `generated` is what the edited text was before; null when nobody knows.
    UnchangedSections(const GeneratedText* generated, std::string_view edited);

    struct Match {
        ObjectKind kind = ObjectKind::none;
        int index = 0;             // of the record the section was made from
        std::size_t lastLine = 0;  // of the section in the edited text, from 0
    };
    // The section that begins at a line of the edited text; null when it was edited or is new.
    [[nodiscard]] const Match* at(std::size_t firstLine) const;

    // The generated text had characters that the text view can't hold.
    [[nodiscard]] bool hadUnshown() const { return hadUnshown_; }

  private:
    bool hadUnshown_ = false;
    std::unordered_map<std::size_t, Match> matches_;  // by first line
};

}  // namespace quillmark
