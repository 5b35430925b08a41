#include "languages/literals.h"

#include <algorithm>
#include <cctype>

namespace quillmark::languages {
namespace {

bool isNameStart(char c) {
    return c == '_' || std::isalpha(static_cast<unsigned char>(c)) != 0 ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool isDigit(char c) {
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

class Scanner {
  public:
    explicit Scanner(std::string_view code) : code_(code) {}

    std::vector<Token> run() {
        while (at_ < code_.size()) {
            next();
        }
        return std::move(tokens_);
    }

  private:
    [[nodiscard]] bool sees(std::string_view text) const {
        return code_.substr(at_, text.size()) == text;
    }
    // Moves to `end`, which may be the end of all.
    std::string_view take(std::size_t end) {
        end = std::min(end, code_.size());
        const std::string_view taken = code_.substr(at_, end - at_);
        line_ += static_cast<int>(std::count(taken.begin(), taken.end(), '\n'));
        at_ = end;
        return taken;
    }
    void skipPast(std::string_view text, std::size_t from) {
        const std::size_t found = code_.find(text, from);
        take(found == std::string_view::npos ? found : found + text.size());
    }
    void add(TokenKind kind, std::string_view text, int line) {
        tokens_.push_back({kind, std::string(text), line});
    }

    void next() {
        const char c = code_[at_];
        const int line = line_;
        if (std::isspace(static_cast<unsigned char>(c)) != 0) {
            take(at_ + 1);
        } else if (sees("//")) {
            skipPast("\n", at_);
        } else if (sees("/*")) {
            skipPast("*/", at_ + 2);
        } else if (sees("R\"")) {
            const std::size_t open = code_.find('(', at_);
            const std::string close =
                ")" + std::string(code_.substr(at_ + 2, open - at_ - 2)) + "\"";
            const std::size_t end = code_.find(close, open);
            add(TokenKind::literal, code_.substr(open + 1, end - open - 1), line);
            skipPast(close, open);
        } else if (c == '"') {
            add(TokenKind::literal, quoted(), line);
        } else if (c == '\'') {
            std::size_t end = at_ + 1;
            while (end < code_.size() && code_[end] != '\'') {
                end += code_[end] == '\\' ? 2U : 1U;
            }
            add(TokenKind::other, take(end + 1), line);
        } else if (isNameStart(c) || isDigit(c)) {
            // "'" may stand between the digits of a number.
            std::size_t end = at_ + 1;
            while (end < code_.size() && (isNameStart(code_[end]) || isDigit(code_[end]) ||
                                          (isDigit(c) && code_[end] == '\''))) {
                ++end;
            }
            const std::string_view word = take(end);
            const bool prefix = at_ < code_.size() && code_[at_] == '"';
            add(isDigit(c) || prefix ? TokenKind::other : TokenKind::name, word, line);
        } else {
            add(TokenKind::other, take(at_ + 1), line);
        }
    }

    std::string quoted() {
        std::string value;
        take(at_ + 1);
        while (at_ < code_.size() && code_[at_] != '"') {
            if (code_[at_] == '\\') {
                take(at_ + 1);
                value += escaped();
            } else {
                value += take(at_ + 1);
            }
        }
        take(at_ + 1);
        return value;
    }

    // Behind the backslash. Bytes by number aren't needed by texts of people: "?" stands for them.
    char escaped() {
        const char c = at_ < code_.size() ? code_[at_] : '?';
        take(at_ + 1);
        switch (c) {
            case 'n':
                return '\n';
            case 'r':
                return '\r';
            case 't':
                return '\t';
            case '"':
            case '\'':
            case '\\':
                return c;
            default:
                return '?';
        }
    }

    std::string_view code_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::vector<Token> tokens_;
};

}  // namespace

std::vector<Token> tokensOf(std::string_view code) {
    return Scanner(code).run();
}

}  // namespace quillmark::languages
