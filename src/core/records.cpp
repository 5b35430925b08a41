#include "core/records.h"

#include <charconv>

namespace quillmark {
namespace {

std::string hexDigits(std::uint32_t value, std::size_t digits, const char* alphabet) {
    std::array<char, 8> buffer{};
    std::size_t used = 0;
    do {
        buffer[buffer.size() - ++used] = alphabet[value & 15U];
        value >>= 4U;
    } while (value != 0);
    std::string text(digits > used ? digits - used : 0, '0');
    text.append(buffer.data() + buffer.size() - used, used);
    return text;
}

}  // namespace

std::string hexText(std::uint32_t value, std::size_t digits) {
    return hexDigits(value, digits, "0123456789abcdef");
}

std::string hexTextUpper(std::uint32_t value, std::size_t digits) {
    return hexDigits(value, digits, "0123456789ABCDEF");
}

void setIdentity(std::string& Type, std::string& SubType, std::uint16_t value) {
    Type = hexText(static_cast<std::uint32_t>(value) >> 5U, 3);
    SubType = hexText(value & 31U, 2);
}

int typeValue(const std::string& Type) {
    int value = 0;
    std::from_chars(Type.data(), Type.data() + Type.size(), value, 16);
    return value;
}

int identityValue(const std::string& Type, const std::string& SubType) {
    return typeValue(Type) * 32 + typeValue(SubType);
}

}  // namespace quillmark
