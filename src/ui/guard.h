// The one place where failures of a handler end: every action of a window goes through it.
#pragma once

#include <functional>
#include <string>
#include <type_traits>
#include <utility>

#include "core/dialogues.h"

namespace quillmark {

// Shows "Error N (description) in procedure NAME of Feuille WINDOW" and lets the program go on.
// By the program's own box while there are `FailureDialogues`. To be called within a catch block
// only.
void tellUnforeseen(const char* procedure, const char* window);
// The same where no window is at hand: "of Module MODULE".
void tellUnforeseenOfModule(const char* procedure, const char* module);

// Shows failures for as long as it lives.
class FailureDialogues {
  public:
    explicit FailureDialogues(Dialogues& dialogues);
    ~FailureDialogues();
    FailureDialogues(const FailureDialogues&) = delete;
    FailureDialogues& operator=(const FailureDialogues&) = delete;
};

template <typename Handler>
[[nodiscard]] auto guarded(std::string procedure, const char* window, Handler handler) {
    return [ procedure = std::move(procedure), window,
             handler = std::move(handler) ]<typename... Arguments>(
        Arguments && ... arguments) mutable requires std::is_invocable_v<Handler&, Arguments...> {
        try {
            handler(std::forward<Arguments>(arguments)...);
        } catch (...) {
            tellUnforeseen(procedure.c_str(), window);
        }
    };
}

}  // namespace quillmark
