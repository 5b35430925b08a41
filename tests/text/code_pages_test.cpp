#include "text/code_pages.h"

#include <gtest/gtest.h>

#include "core/document.h"
#include "support/test_files.h"
#include "text/labels.h"

namespace quillmark {
namespace {

using testing::bytesOf;
using testing::hex;

TEST(CodePages, EveryByteOfASingleBytePageSurvivesBothWays) {
    for (const int page : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 437, 0}) {
        Bytes all;
        for (unsigned i = 1; i < 256; ++i) {
            all.push_back(static_cast<std::uint8_t>(i));
        }
        const EncodedText back = textToBytes(bytesToText(all, page), page);
        EXPECT_EQ(back.bytes, all) << page;
        EXPECT_EQ(back.lost, 0U) << page;
    }
}

TEST(CodePages, TextOfEachKindOfPage) {
    struct Case {
        int page;
        std::string text;
        Bytes bytes;
        std::size_t lost;
    };
    const std::vector<Case> cases{
        {1252, "Forêt €", hex("46 6F 72 EA 74 20 80"), 0},
        {1251, "Лес", hex("CB E5 F1"), 0},
        {1252, "Лес", bytesOf("???"), 3},
        {65001, "Wald ⛰", hex("57 61 6C 64 20 E2 9B B0"), 0},
        {932, "山 yama", hex("8E 52 20 79 61 6D 61"), 0},
        {936, "山", hex("C9 BD"), 0},
        {950, "山é", hex("A4 73 3F"), 1},
        {1252, "a😀b", bytesOf("a?b"), 1},
        {1257, "\xEF\xA3\xBC", hex("A1"), 0},  // the private character of an undefined byte
        {1252, "\xC2\x81", hex("81"), 0},
        {0, "é", hex("E9"), 0},
        {932, "日\x1A\x1C\x7F日", hex("93 FA 1A 1C 7F 93 FA"), 0},
    };
    for (const Case& c : cases) {
        const EncodedText encoded = textToBytes(c.text, c.page);
        EXPECT_EQ(encoded.bytes, c.bytes) << c.page << ' ' << c.text;
        EXPECT_EQ(encoded.lost, c.lost) << c.page << ' ' << c.text;
        if (c.lost == 0) {
            EXPECT_EQ(bytesToText(c.bytes, c.page), c.text) << c.page;
        }
    }
    EXPECT_EQ(bytesToText(hex("61 FF 62 E2 82"), 65001),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
    EXPECT_EQ(bytesToText(hex("F0 9F 98 41"), 65001),
              "\xEF\xBF\xBD"
              "A");
    EXPECT_FALSE(isValidUtf8(hex("F0 9F 98"))) << "as long as U+FFFD itself";
    EXPECT_TRUE(isValidUtf8(hex("EF BF BD")));
    EXPECT_EQ(bytesToText(hex("ED A0 80"), 65001).find('\xED'), std::string::npos);
    EXPECT_FALSE(codePageExists(1200)) << "UTF-16 text is full of zeros, which end labels";
    EXPECT_FALSE(codePageExists(37)) << "no key could be read in a page without ASCII";
    EXPECT_FALSE(codePageExists(4711));
    EXPECT_TRUE(codePageExists(437));
    EXPECT_EQ(bytesToText(bytesOf("a"), 4711), "");
}

TEST(CodePages, EncodingOfATextFile) {
    struct Case {
        const char* why;
        Bytes file;
        TextFileEncoding encoding;
        int CodePage;
        bool names;
        bool utf8;
        const char* text;
    };
    const std::string far(200, 'x');
    const std::vector<Case> cases{
        {"mark", hex("EF BB BF 61"), TextFileEncoding::automatic, 1252, false, true, "a"},
        {"valid multi-byte", hex("C3 A9"), TextFileEncoding::automatic, 1252, false, true, "é"},
        {"one byte", hex("E9"), TextFileEncoding::automatic, 1252, false, false, "é"},
        {"named page", bytesOf("codepage=1251\n\xCB"), TextFileEncoding::automatic, 1251, true,
         false, "codepage=1251\nЛ"},
        {"plain command trusts the name", bytesOf("CodePage=1251\n\xD0\x9B"),
         TextFileEncoding::codePage, 1251, true, false, "CodePage=1251\nР›"},
        {"UTF-8 command doesn't", bytesOf("CodePage=1251\n\xD0\x9B"), TextFileEncoding::utf8, 1251,
         true, true, "CodePage=1251\nЛ"},
        {"named UTF-8, partly something older", bytesOf("CodePage=65001\n\xE9\xC3\xA9"),
         TextFileEncoding::automatic, 65001, true, false, "CodePage=65001\néé"},
        {"zeros go", Bytes{'a', 0, 'b'}, TextFileEncoding::automatic, 1252, false, false, "ab"},
        {"a blank as separator", bytesOf("CodePage 1251\n\xCB"), TextFileEncoding::automatic, 1251,
         true, false, "CodePage 1251\nЛ"},
        {"as loose as the parser", bytesOf("\t CodePage :\t1251\n\xCB"),
         TextFileEncoding::automatic, 1251, true, false, "\t CodePage :\t1251\nЛ"},
        {"a line before a comment", bytesOf("; codepage=1250\n[_id]\nCodePage=1251\n\xCB"),
         TextFileEncoding::automatic, 1251, true, false,
         "; codepage=1250\n[_id]\nCodePage=1251\nЛ"},
        {"no page a file could be in", bytesOf("CodePage=-1\n\xE9"), TextFileEncoding::automatic,
         1252, true, false, "CodePage=-1\né"},
        {"unknown page is read as 1252", bytesOf("CodePage=4711\n\xE9"),
         TextFileEncoding::automatic, 4711, true, false, "CodePage=4711\né"},
    };
    for (const Case& c : cases) {
        const DecodedTextFile decoded = decodeTextFile(c.file, c.encoding);
        EXPECT_EQ(decoded.CodePage, c.CodePage) << c.why;
        EXPECT_EQ(decoded.namesCodePage, c.names) << c.why;
        EXPECT_EQ(decoded.utf8, c.utf8) << c.why;
        EXPECT_EQ(decoded.text, c.text) << c.why;
    }
    EXPECT_EQ(decodeTextFile(bytesOf(far + "CodePage=1250"), TextFileEncoding::automatic).CodePage,
              1250);
}

TEST(Labels, BlocksWithBothPrefixes) {
    const EncodedStrings small = encodeStrings({{4, "Inn"}}, 1252);
    EXPECT_EQ(small.Strings, hex("0B 04 49 6E 6E 00"));
    // 127 bytes of entries still have a prefix of one byte, 128 have one of two.
    EXPECT_EQ(encodeStrings({{1, std::string(125, 'a')}}, 1252).Strings[0], 0xFF);
    const Bytes longer = encodeStrings({{1, std::string(126, 'a')}}, 1252).Strings;
    EXPECT_EQ(longer.size(), 130U);
    EXPECT_EQ(longer[0] + 256 * longer[1], 128 * 4 + 2);
    EXPECT_EQ(decodeStrings(longer, 1252), (std::vector<Label>{{1, std::string(126, 'a')}}));
    EXPECT_TRUE(decodeStrings(hex("01"), 1252).empty());
    EXPECT_EQ(decodeStrings(hex("07 04 41 42"), 1252), (std::vector<Label>{{4, "AB"}}))
        << "an entry without its zero keeps its text";
}

TEST(Labels, WhatFitsStays) {
    const EncodedStrings full = encodeStrings({{1, std::string(16000, 'a')},
                                               {2, std::string(300, 'e') + std::string(200, 'f')},
                                               {3, "x"}},
                                              65001);
    EXPECT_TRUE(full.truncated);
    EXPECT_EQ(full.Strings.size(), kMaxStringsSize + 2);
    const auto labels = decodeStrings(full.Strings, 65001);
    ASSERT_EQ(labels.size(), 2U);
    EXPECT_EQ(labels[1].text, std::string(300, 'e') + std::string(79, 'f'));
}

}  // namespace
}  // namespace quillmark
