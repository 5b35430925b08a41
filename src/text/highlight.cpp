#include "text/highlight.h"

#include <algorithm>
#include <array>
#include <string>

namespace quillmark {
namespace {

// In lower case, as sections and keys are known in any.
constexpr std::array<std::u16string_view, 7> kSections{
    u"[_id]", u"[_comments]", u"[_draworder]", u"[_polygon]", u"[_line]", u"[_point]", u"[end]"};
constexpr std::array<std::u16string_view, 23> kKeys{u"productcode=",
                                                    u"fid=",
                                                    u"codepage=",
                                                    u"type=",
                                                    u"subtype=",
                                                    u"activity=",
                                                    u"comment=",
                                                    u"useorientation=",
                                                    u"linewidth=",
                                                    u"borderwidth=",
                                                    u"custommpcname=",
                                                    u"extendedlabels=",
                                                    u"fontstyle=",
                                                    u"customcolor=",
                                                    u"contourcolor=",
                                                    u"daycustomcolor:",
                                                    u"nightcustomcolor:",
                                                    u"daycontourcolor:",
                                                    u"nightcontourcolor:",
                                                    u"xpm=",
                                                    u"dayxpm=",
                                                    u"nightxpm=",
                                                    u"string="};
constexpr std::size_t kLongestWord = 32;

bool isBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\xFEFF';
}

std::u16string lowered(std::u16string_view text) {
    std::u16string result(text);
    for (char16_t& c : result) {
        c = c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c;
    }
    return result;
}

template <typename Words>
bool isOneOf(const Words& words, std::u16string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

// Labels are numbered: "String12=" stands for "String=".
std::u16string withoutNumber(std::u16string key) {
    constexpr std::u16string_view kString = u"string";
    if (key.compare(0, kString.size(), kString) == 0) {
        const std::size_t end = key.find_first_not_of(u"0123456789", kString.size());
        key.erase(kString.size(), std::min(end, key.size()) - kString.size());
    }
    return key;
}

// The characters from `start` that are the name of a section or a key with its separator, else 0.
TextSpan keyword(std::u16string_view line, std::size_t start) {
    const bool bracket = line[start] == u'[';
    const std::size_t end = line.find_first_of(bracket ? u"]" : u"=:", start);
    if (end == std::u16string_view::npos || end - start >= kLongestWord) {
        return {};
    }
    const std::u16string word = lowered(line.substr(start, end + 1 - start));
    if (bracket ? isOneOf(kSections, word) : isOneOf(kKeys, withoutNumber(word))) {
        return {start, word.size(), bracket ? TextClass::section : TextClass::key};
    }
    return {};
}

}  // namespace

std::vector<TextSpan> classifyLine(std::u16string_view line) {
    std::vector<TextSpan> spans;
    const auto add = [&spans](std::size_t start, std::size_t end, TextClass what) {
        if (end > start) {
            spans.push_back({start, end - start, what});
        }
    };
    if (line.empty()) {
        return spans;
    }
    if (line.front() == u'"') {  // a row or a colour of a picture, which may hold any character
        add(0, line.size(), TextClass::value);
        return spans;
    }
    const std::size_t comment = std::min(line.find(u';'), line.size());
    const std::u16string_view content = line.substr(0, comment);
    std::size_t start = 0;
    while (start < content.size() && isBlank(content[start])) {
        ++start;
    }
    const TextSpan word = start < content.size() ? keyword(content, start) : TextSpan();
    if (word.length > 0) {
        add(0, start, TextClass::value);
        spans.push_back(word);
        start += word.length;
    } else {
        start = 0;
    }
    add(start, comment, TextClass::value);
    add(comment, line.size(), TextClass::comment);
    return spans;
}

}  // namespace quillmark
