// Text as the text view can hold it.
#pragma once

#include <string>

namespace quillmark {

// U+2029, U+FDD0 and U+FDD1 have a meaning of their own in text controls: U+FFFD stands for them.
// Lines stay where they are.
[[nodiscard]] std::string viewableText(std::string text);

}  // namespace quillmark
