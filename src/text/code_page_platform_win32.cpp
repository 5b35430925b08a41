#include <windows.h>

#include <string>

#include "text/code_page_platform.h"

namespace quillmark::platform {
namespace {

bool isStateful(int codePage) {
    return codePage == 1200 || codePage == 1201 || codePage == 12000 || codePage == 12001 ||
           codePage == 65000 || (codePage >= 50220 && codePage <= 50229) || codePage == 52936;
}

}  // namespace

bool hasCodePage(int codePage) {
    return codePage > 0 && !isStateful(codePage) &&
           IsValidCodePage(static_cast<UINT>(codePage)) != FALSE;
}

int maxBytesPerCharacter(int codePage) {
    CPINFO info{};
    if (!hasCodePage(codePage) || GetCPInfo(static_cast<UINT>(codePage), &info) == FALSE) {
        return 0;
    }
    return static_cast<int>(info.MaxCharSize);
}

std::u16string toUtf16(ByteView bytes, int codePage) {
    if (!hasCodePage(codePage) || bytes.empty()) {
        return {};
    }
    const auto page = static_cast<UINT>(codePage);
    const auto convert = [page](const char* source, int size, std::wstring& text) {
        const int length =
            MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, source, size, nullptr, 0);
        if (length <= 0) {
            return false;
        }
        const std::size_t before = text.size();
        text.resize(before + static_cast<std::size_t>(length));
        MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, source, size, text.data() + before, length);
        return true;
    };
    const auto* source = reinterpret_cast<const char*>(bytes.data());
    const int size = static_cast<int>(bytes.size());
    std::wstring text;
    if (!convert(source, size, text)) {
        // Somewhere a sequence is malformed: character by character, to keep the others.
        text.clear();
        for (int i = 0; i < size;) {
            const bool lead = IsDBCSLeadByteEx(page, bytes[static_cast<std::size_t>(i)]) != FALSE;
            int length = lead && i + 1 < size ? 2 : 1;
            if (!convert(source + i, length, text)) {
                text.push_back(L'\xFFFD');
                length = 1;
            }
            i += length;
        }
    }
    return {text.begin(), text.end()};
}

Bytes fromUtf16(const std::u16string& text, int codePage, std::size_t& lost) {
    if (!hasCodePage(codePage)) {
        return {};
    }
    // Character by character: the call tells only that something was replaced, not how often.
    const bool canTell = codePage != 65001 && codePage != 54936;
    Bytes bytes;
    for (std::size_t i = 0; i < text.size();) {
        const bool pair = text[i] >= 0xD800 && text[i] < 0xDC00 && i + 1 < text.size();
        const int units = pair ? 2 : 1;
        char buffer[16];
        BOOL replaced = FALSE;
        const int length = WideCharToMultiByte(
            static_cast<UINT>(codePage), canTell ? WC_NO_BEST_FIT_CHARS : 0,
            reinterpret_cast<const wchar_t*>(text.data() + i), units, buffer, sizeof buffer,
            canTell ? "?" : nullptr, canTell ? &replaced : nullptr);
        if (replaced != FALSE || length <= 0) {
            ++lost;
            bytes.push_back('?');
        } else {
            bytes.insert(bytes.end(), buffer, buffer + length);
        }
        i += static_cast<std::size_t>(units);
    }
    return bytes;
}

int systemCodePage() {
    return static_cast<int>(GetACP());
}

}  // namespace quillmark::platform
