// The one place where failures of a handler end: every action of a window goes through it.
#pragma once

#include <functional>
#include <type_traits>
#include <utility>

namespace quillmark {

// Shows "Error N (description) in procedure NAME of Feuille WINDOW" and lets the program go on.
// To be called within a catch block only. Names are string literals.
void tellUnforeseen(const char* procedure, const char* window);
// The same where no window is at hand: "of Module MODULE".
void tellUnforeseenOfModule(const char* procedure, const char* module);

template <typename Handler>
[[nodiscard]] auto guarded(const char* procedure, const char* window, Handler handler) {
    return [ procedure, window, handler = std::move(handler) ]<typename... Arguments>(
        Arguments && ... arguments) mutable requires std::is_invocable_v<Handler&, Arguments...> {
        try {
            handler(std::forward<Arguments>(arguments)...);
        } catch (...) {
            tellUnforeseen(procedure, window);
        }
    };
}

}  // namespace quillmark
