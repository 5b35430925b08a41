#include <unicode/ucnv.h>
#include <unicode/ucnv_cb.h>

#include <algorithm>
#include <array>
#include <memory>
#include <unordered_map>

#include "text/code_page_platform.h"

namespace quillmark::platform {
namespace {

struct CloseConverter {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using ConverterPointer = std::unique_ptr<UConverter, CloseConverter>;

std::string converterName(int codePage) {
    switch (codePage) {
        case 65001:
            return "UTF-8";
        case 20127:
            return "US-ASCII";
        case 20866:
            return "KOI8-R";
        case 21866:
            return "KOI8-U";
        case 10000:
            return "macintosh";
        case 949:
            return "windows-949";
        case 54936:
            return "gb18030";
        default:
            break;
    }
    if (codePage >= 28591 && codePage <= 28605) {
        return "ISO-8859-" + std::to_string(codePage - 28590);
    }
    return {};
}

ConverterPointer openByName(const std::string& name) {
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(name.c_str(), &status);
    if (U_FAILURE(status) != 0) {
        return {};
    }
    return ConverterPointer(converter);
}

// Zero-terminated labels need a page in which no character holds a zero byte and none depends on
// what stood before.
bool isUsable(UConverter* converter) {
    switch (ucnv_getType(converter)) {
        case UCNV_SBCS:
        case UCNV_DBCS:
        case UCNV_MBCS:
        case UCNV_LATIN_1:
        case UCNV_UTF8:
        case UCNV_US_ASCII:
            return true;
        default:
            return false;
    }
}

ConverterPointer open(int codePage) {
    if (codePage <= 0) {
        return {};
    }
    const std::string number = std::to_string(codePage);
    const std::string own = converterName(codePage);
    std::array<std::string, 4> names{own, "windows-" + number, "ibm-" + number, "cp" + number};
    for (const auto& name : names) {
        if (name.empty()) {
            continue;
        }
        ConverterPointer converter = openByName(name);
        if (converter && isUsable(converter.get())) {
            return converter;
        }
    }
    return {};
}

void countAndReplace(const void* context, UConverterFromUnicodeArgs* args, const UChar* /*units*/,
                     int32_t /*length*/, UChar32 /*character*/, UConverterCallbackReason reason,
                     UErrorCode* status) {
    if (reason > UCNV_IRREGULAR) {
        return;
    }
    ++*static_cast<std::size_t*>(const_cast<void*>(context));
    *status = U_ZERO_ERROR;
    const char question = '?';
    ucnv_cbFromUWriteBytes(args, &question, 1, 0, status);
}

// Opening a converter costs far more than converting a label, so each thread keeps its own.
UConverter* converterFor(int codePage) {
    thread_local std::unordered_map<int, ConverterPointer> converters;
    const auto [place, isNew] = converters.try_emplace(codePage);
    if (isNew) {
        place->second = open(codePage);
    }
    if (place->second) {
        ucnv_reset(place->second.get());
    }
    return place->second.get();
}

}  // namespace

bool hasCodePage(int codePage) {
    return converterFor(codePage) != nullptr;
}

int maxBytesPerCharacter(int codePage) {
    const UConverter* converter = converterFor(codePage);
    return converter == nullptr ? 0 : ucnv_getMaxCharSize(converter);
}

std::u16string toUtf16(ByteView bytes, int codePage) {
    UConverter* converter = converterFor(codePage);
    if (converter == nullptr || bytes.empty()) {
        return {};
    }
    std::u16string text(bytes.size() * 2 + 2, u'\0');
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = ucnv_toUChars(converter, text.data(), static_cast<int32_t>(text.size()),
                                         reinterpret_cast<const char*>(bytes.data()),
                                         static_cast<int32_t>(bytes.size()), &status);
    if (U_FAILURE(status) != 0) {
        return {};
    }
    text.resize(static_cast<std::size_t>(length));
    // The library marks some malformed single bytes by a control character of its own.
    if (std::find(bytes.begin(), bytes.end(), 0x1A) == bytes.end()) {
        std::replace(text.begin(), text.end(), u'\x1A', u'\xFFFD');
    }
    return text;
}

Bytes fromUtf16(const std::u16string& text, int codePage, std::size_t& lost) {
    UConverter* converter = converterFor(codePage);
    if (converter == nullptr || text.empty()) {
        return {};
    }
    UErrorCode status = U_ZERO_ERROR;
    UConverterFromUCallback previous = nullptr;
    const void* previousContext = nullptr;
    ucnv_setFromUCallBack(converter, countAndReplace, &lost, &previous, &previousContext, &status);
    ucnv_setFallback(converter, false);
    Bytes bytes(text.size() * static_cast<std::size_t>(ucnv_getMaxCharSize(converter)) + 16);
    const int32_t length = ucnv_fromUChars(converter, reinterpret_cast<char*>(bytes.data()),
                                           static_cast<int32_t>(bytes.size()), text.data(),
                                           static_cast<int32_t>(text.size()), &status);
    UErrorCode ignored = U_ZERO_ERROR;
    ucnv_setFromUCallBack(converter, previous, previousContext, nullptr, nullptr, &ignored);
    if (U_FAILURE(status) != 0) {
        return {};
    }
    bytes.resize(static_cast<std::size_t>(length));
    return bytes;
}

// Linux has no 8-bit code page of its own any more.
int systemCodePage() {
    return 65001;
}

}  // namespace quillmark::platform
