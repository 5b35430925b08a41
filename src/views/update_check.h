// Whether a newer version is out, in words. What is fetched is a number and nothing is ever run.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/translation.h"
#include "core/version.h"

namespace quillmark {

struct UpdateCheck {
    enum class Found : std::uint8_t { failure, nothingNewer, newer };
    Found found = Found::failure;
    Version version;  // what the note says, unless it is a failure
};
// `note`: what lies at the address; nothing when it couldn't be fetched.
[[nodiscard]] UpdateCheck judgeVersionNote(const std::optional<std::string>& note,
                                           const Version& own);

// For the window, and in one line for the start, which has nothing to say without news.
[[nodiscard]] std::string updateText(const UpdateCheck& check, const Traduction& traduction);
[[nodiscard]] std::string updateLine(const UpdateCheck& check, const Traduction& traduction);

// The page that the browser is offered: where the note lies.
[[nodiscard]] std::string downloadPage(const std::string& noteAddress);

}  // namespace quillmark
