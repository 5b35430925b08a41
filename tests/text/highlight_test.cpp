#include "text/highlight.h"

#include <gtest/gtest.h>

#include "text/utf8.h"

namespace quillmark {
namespace {

// A line with its spans in the order of the line: "k(Type=)v(0x03)".
std::string classified(std::u16string_view line) {
    std::string result;
    std::size_t end = 0;
    for (const TextSpan& span : classifyLine(line)) {
        EXPECT_EQ(span.start, end) << "a gap or an overlap";
        end = span.start + span.length;
        result += std::string(1, "vcsk"[static_cast<int>(span.what)]) + "(" +
                  utf16ToUtf8(line.substr(span.start, span.length)) + ")";
    }
    EXPECT_EQ(end, line.size());
    return result;
}

TEST(Highlight, ClassifiesLinesByThemselves) {
    const struct {
        std::u16string_view line;
        std::string expected;
    } cases[] = {
        {u"", ""},
        {u"[_polygon]", "s([_polygon])"},
        {u"  [END] ;x", "v(  )s([END])v( )c(;x)"},
        {u"[_poligon]", "v([_poligon])"},
        {u"Type=0x10f04", "k(Type=)v(0x10f04)"},
        {u"Type = 0x10f04", "v(Type = 0x10f04)"},  // no key for the parser either
        {u"\tsubtype=0x1a", "v(\t)k(subtype=)v(0x1a)"},
        {u"String12=0x04,a=b;c", "k(String12=)v(0x04,a=b)c(;c)"},
        {u"DaycustomColor:#104080", "k(DaycustomColor:)v(#104080)"},
        {u"Xpm=\"32 32 4 1\"", "k(Xpm=)v(\"32 32 4 1\")"},
        {u"\"! c #10;2030\"   alpha=7F", "v(\"! c #10;2030\"   alpha=7F)"},
        {u" \"!;\"", "v( \"!)c(;\")"},  // only a quote at the very start keeps ";"
        {u";Type=0x03", "c(;Type=0x03)"},
        {u"auteur=moi", "v(auteur=moi)"},
        {u"[_line", "v([_line)"},
        {u"=", "v(=)"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(classified(one.line), one.expected);
    }
}

}  // namespace
}  // namespace quillmark
