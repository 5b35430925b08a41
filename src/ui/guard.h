// The one place where failures of a handler end: every action of a window goes through it.
#pragma once

#include <exception>
#include <functional>
#include <utility>

namespace quillmark {

// Shows "Error N (description) in procedure NAME of Feuille WINDOW" and lets the program go on.
// To be called within a catch block only. Names are string literals.
void tellUnforeseen(const char* procedure, const char* window);

template <typename Handler>
[[nodiscard]] auto guarded(const char* procedure, const char* window, Handler handler) {
    return [procedure, window, handler = std::move(handler)](auto&&... arguments) mutable {
        try {
            if constexpr (std::is_invocable_v<Handler&, decltype(arguments)...>) {
                handler(std::forward<decltype(arguments)>(arguments)...);
            } else {
                handler();
            }
        } catch (...) {
            tellUnforeseen(procedure, window);
        }
    };
}

}  // namespace quillmark
