#include "core/dialogues.h"

namespace quillmark {

MessageStyle buttonsOf(MessageStyle style) {
    const auto buttons = static_cast<MessageStyle>(static_cast<int>(style) & 0x0F);
    switch (buttons) {
        case MessageStyle::okCancel:
        case MessageStyle::yesNoCancel:
        case MessageStyle::yesNo:
        case MessageStyle::retryCancel:
            return buttons;
        default:
            return MessageStyle::ok;
    }
}

MessageStyle iconOf(MessageStyle style) {
    return static_cast<MessageStyle>(static_cast<int>(style) & 0xF0);
}

}  // namespace quillmark
