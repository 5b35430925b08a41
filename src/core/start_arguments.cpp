#include "core/start_arguments.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "core/ascii.h"
#include "core/paths.h"

namespace quillmark {
namespace {

namespace fs = std::filesystem;

std::string_view withoutQuotes(std::string_view name) {
    if (!name.empty() && name.front() == '"') {
        name.remove_prefix(1);
    }
    if (!name.empty() && name.back() == '"') {
        name.remove_suffix(1);
    }
    return name;
}

int hexDigit(char c) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const std::size_t value = kDigits.find(loweredAscii({&c, 1}));
    return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

// "%20" and its like; what is no such thing stays as it is, and no path holds a zero.
std::string percentDecoded(std::string_view text) {
    std::string decoded;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool whole = text[i] == '%' && i + 2 < text.size();
        const int high = whole ? hexDigit(text[i + 1]) : -1;
        const int low = whole ? hexDigit(text[i + 2]) : -1;
        if (high < 0 || low < 0 || high + low == 0) {
            decoded += text[i];
        } else {
            decoded += static_cast<char>(high * 16 + low);
            i += 2;
        }
    }
    return decoded;
}

// "file:///a", "file://localhost/a" and "file:/a" are "/a"; another host is a share of it.
fs::path pathOfAddress(std::string_view address) {
    constexpr std::string_view kTwoSlashes = "//";
    if (address.substr(0, 2) != kTwoSlashes) {
        return pathFromUtf8(percentDecoded(address));
    }
    const std::size_t hostEnd = std::min(address.find('/', 2), address.size());
    const std::string host = loweredAscii(address.substr(2, hostEnd - 2));
    if (!host.empty() && host != "localhost") {
        return pathFromUtf8(percentDecoded(address));
    }
    std::string path = percentDecoded(address.substr(hostEnd));
    // Where drives have letters, "/C:/a" is a way to write "C:/a".
    const bool drive = path.size() > 2 && path[2] == ':';
    if (drive && pathFromUtf8(path.substr(1)).is_absolute()) {
        path.erase(0, 1);
    }
    return pathFromUtf8(path);
}

fs::path fileNamed(std::string_view argument, const fs::path& folder) {
    constexpr std::string_view kScheme = "file:";
    const std::string_view name = withoutQuotes(argument);
    if (name.empty()) {
        return {};
    }
    const bool address = loweredAscii(name.substr(0, kScheme.size())) == kScheme;
    const fs::path path =
        address ? pathOfAddress(name.substr(kScheme.size())) : pathFromUtf8(std::string(name));
    return withoutDots(folder / path);
}

std::string joined(const std::vector<std::string>& arguments, std::size_t first) {
    std::string all;
    for (std::size_t i = first; i < arguments.size(); ++i) {
        all += (i == first ? "" : " ") + arguments[i];
    }
    return all;
}

}  // namespace

StartArguments readArguments(const std::vector<std::string>& arguments, const fs::path& folder,
                             const std::function<bool(const fs::path&)>& exists) {
    using Wish = StartArguments::Wish;
    if (arguments.empty()) {
        return {};
    }
    std::size_t first = 0;
    const std::string& word = arguments.front();
    if ((word == "--help" || word == "--version" || word == "--") &&
        !exists(fileNamed(word, folder))) {
        if (word != "--") {
            return {word == "--help" ? Wish::help : Wish::version, {}};
        }
        if (++first == arguments.size()) {
            return {};
        }
    }
    fs::path file = fileNamed(arguments[first], folder);
    // A single name isn't looked for: it may lie on a drive that doesn't answer.
    if (first + 1 < arguments.size() && (file.empty() || !exists(file))) {
        fs::path whole = fileNamed(joined(arguments, first), folder);
        if (!whole.empty() && exists(whole)) {
            file = std::move(whole);
        }
    }
    return {Wish::start, std::move(file)};
}

}  // namespace quillmark
