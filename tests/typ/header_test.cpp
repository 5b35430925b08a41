#include <gtest/gtest.h>

#include "typ/typ_builder.h"

namespace quillmark {
namespace {

using namespace testing;

TEST(TypHeader, DatesAndNumbersAreTakenAsFilesHaveThem) {
    using Date = std::array<unsigned, 2>;
    for (const auto& [date, wanted] : std::vector<std::pair<Date, Date>>{
             {{118, 5}, {2018, 5}}, {{2023, 0}, {2023, 0}}, {{1999, 13}, {3899, 12}}}) {
        const auto opened = open(TypBuilder().number(14, date[0], 2).number(16, date[1], 1).file());
        EXPECT_EQ((Date{opened.document.EnteteTYP.year, opened.document.EnteteTYP.month}), wanted);
        EXPECT_TRUE(opened.journal.entries().empty()) << "absent sections are no fault";
    }
    const auto opened = open(TypBuilder().number(47, 65535, 2).number(49, 32768, 2).file());
    EXPECT_EQ(opened.document.FID, "65535");
    EXPECT_EQ(opened.document.ProductCode, "32768");
    const Bytes written = save(opened.document);
    EXPECT_EQ(Bytes(written.begin() + 47, written.begin() + 51), hex("FF FF 00 80"));
    EXPECT_EQ(written.size(), 91U);
}

TEST(TypHeader, CodePages) {
    for (const std::uint32_t page : {1250U, 65001U, 874U, 437U, 0U}) {
        const bool known = page > 437;
        const auto opened = open(TypBuilder().number(21, page, 2).file());
        EXPECT_EQ(opened.document.CodePage, known ? static_cast<std::int32_t>(page) : 1252);
        ASSERT_EQ(opened.journal.warningCount(), known ? 0 : 1);
        if (!known) {
            EXPECT_EQ(
                told(opened.journal)[0],
                "W Numéro de page de code inconnu: " + std::to_string(page) +
                    "|Quillmark l'a remplacé par 1252.|Si cela ne convient pas, sélectionner un "
                    "autre numéro de page de code dans le déroulant \"Page de code\".");
        }
    }
}

TEST(TypHeader, ForeignAndShortFilesOpenAllTheSame) {
    const std::string rule(150, '-');
    const auto empty = open({});
    EXPECT_FALSE(empty.hasMagic);
    const auto lines = told(empty.journal);
    ASSERT_EQ(lines.size(), 3U) << "the magic, the code page of 0, what lies behind the header";
    EXPECT_EQ(lines[0],
              "E " + rule +
                  "|Le fichier semble être corrompu ou ne pas être un fichier TYP valide|" + rule +
                  "|||");

    Bytes cut = TypBuilder().number(47, 7, 1).file();
    cut.resize(48);
    const auto opened = open(cut);
    EXPECT_TRUE(opened.hasMagic);
    EXPECT_EQ(opened.document.FID, "7") << "what there was is kept";
    EXPECT_EQ(told(opened.journal).at(0),
              "E Erreur inconnue lors de l'ouverture du fichier : erreur n°62|Description: lecture "
              "de 91 octets au-delà de la fin des données, position 0|Procedure: ouvrir   |Module: "
              "frmMain");
}

TEST(TypHeader, UnusualSizesKeepWhatIsNotUnderstood) {
    for (const std::uint16_t size : std::array<std::uint16_t, 5>{100, 120, 160, 170, 200}) {
        TypBuilder builder(size);
        for (std::size_t i = size - 5U; i < size; ++i) {
            builder.number(i, 0x40 + static_cast<std::uint32_t>(i % 7), 1);
        }
        builder.append(hex("01 02 03")).data(kPolylineData, hex("06 00 01 02 03 04"));
        builder.index(kPolylineIndex, 3, hex("20 00 00"));
        const auto opened = open(builder.file());
        EXPECT_EQ(opened.document.TailleEntete, size);
        EXPECT_EQ(opened.document.EntreSections, hex("01 02 03")) << size;
        const Bytes written = save(opened.document);
        EXPECT_EQ(Bytes(written.begin() + 91, written.end()),
                  Bytes(builder.file().begin() + 91, builder.file().end()));
    }
}

TEST(TypHeader, SmallestHeaderThatLosesNothing) {
    Document document;
    EXPECT_EQ(smallestHeader(document), 91);
    document.ExtraPOI.resize(1);
    EXPECT_EQ(smallestHeader(document), 110);
    document.EnteteLabels.entrySizeB = 27;
    EXPECT_EQ(smallestHeader(document), 156);
    document.BlocBrut = {1};
    EXPECT_EQ(smallestHeader(document), 164);
    document.Polyline.resize(1);
    EXPECT_EQ(smallestHeader(document), 164) << "an ordinary line";
    document.Polyline[0].ActiveRouting = {0, 1};
    EXPECT_EQ(smallestHeader(document), 174);
    document.TailleEntete = 200;
    document.EnteteInconnu = {0, 3};
    EXPECT_EQ(smallestHeader(document), 200);
}

// Sections that can't be had: one entry each, however many objects they should hold.
TEST(TypSections, EachFaultOfASectionIsToldOnce) {
    struct Case {
        const char* what;
        TypBuilder builder;
        std::size_t objects;
        const char* told;
    };
    // An index of lines, of entries and with its size as stated.
    const auto lines = [](std::uint32_t entrySize, const Bytes& index, std::uint32_t size) {
        return TypBuilder()
            .data(kPolylineData, hex("06 00 01 02 03 04"))
            .index(kPolylineIndex, entrySize, index)
            .number(kPolylineIndex + 6, size, 4);
    };
    const std::vector<Case> cases{
        {"data past the end",
         TypBuilder().index(kPolygonIndex, 3, Bytes(3 * 500)).place(kPolygonData, 5000), 500,
         "section hors du fichier : position 5000, taille 0"},
        {"no data at all", TypBuilder().index(kPolygonIndex, 3, Bytes(6)), 2,
         "section hors du fichier : position 0, taille 0"},
        {"index past the end", lines(3, {}, 30).place(kPolylineIndex, 900), 0,
         "section hors du fichier : position 900, taille 30"},
        {"index cut short, whole entries are had", lines(3, hex("20 00 00 40"), 6), 1,
         "section hors du fichier : position 97, taille 6"},
        {"entry size 0", lines(0, hex("20 00 00"), 3), 0, "index de 3 octets, entrées de 0"},
        {"more than fit 16 bits", lines(3, Bytes(3 * 33000), 3 * 33000), 32767,
         "index de 33000 entrées, 32767 au plus"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto opened = open(c.builder.file());
        EXPECT_EQ(opened.document.Polygone.size() + opened.document.Polyline.size(), c.objects);
        ASSERT_EQ(opened.journal.entries().size(), 1U);
        EXPECT_NE(opened.journal.entries()[0].text.find(c.told), std::string::npos)
            << opened.journal.entries()[0].text;
        expectStable(c.builder.file());
    }
}

}  // namespace
}  // namespace quillmark
