// C++ source cut into names, string literals and signs; comments are left out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillmark::languages {

enum class TokenKind : std::uint8_t { name, literal, other };

struct Token {
    TokenKind kind = TokenKind::other;
    std::string text;  // of a literal: its value
    int line = 1;
};

// Literals with a prefix ("L", "u8") are signs: nothing in the program asks for texts with them.
std::vector<Token> tokensOf(std::string_view code);

}  // namespace quillmark::languages
