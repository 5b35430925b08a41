#include "views/document_card.h"

#include <gtest/gtest.h>

#include "support/test_files.h"

namespace quillmark {
namespace {

SessionFacts factsOf(const char* file) {
    SessionFacts facts;
    facts.hasDocument = true;
    facts.FichierTYP = std::filesystem::path("/dossier") / file;
    return facts;
}

TEST(DocumentCard, TitleOfTheWindow) {
    const Traduction french;
    SessionFacts text = factsOf("a.txt");
    text.OuvertEnTexte = text.utf8 = true;
    SessionFacts fresh;
    fresh.hasDocument = fresh.isNew = true;
    const auto title = [&](const SessionFacts& facts, bool modified) {
        return windowTitle(facts, modified, "v1.0.0", french);
    };
    EXPECT_EQ(title({}, false), "Quillmark v1.0.0");
    EXPECT_EQ(title(factsOf("a.typ"), false), "Quillmark v1.0.0 - [a.typ]");
    EXPECT_EQ(title(factsOf("a.typ"), true), "Quillmark v1.0.0 - [a.typ] modifié");
    EXPECT_EQ(title(text, false), "Quillmark v1.0.0 - [a.txt - Unicode (UTF-8)]");
    EXPECT_EQ(title(fresh, false), "Quillmark v1.0.0 - Nouveau TYP");
    EXPECT_EQ(title(fresh, true), "Quillmark v1.0.0 - Nouveau TYP modifié");
}

TEST(DocumentCard, LengthIsGroupedByThreeDigits) {
    const Traduction french;
    EXPECT_EQ(lengthText(0, french), "0 octets");
    EXPECT_EQ(lengthText(999, french), "999 octets");
    EXPECT_EQ(lengthText(1000, french), "1 000 octets");
    EXPECT_EQ(lengthText(1234567, french), "1 234 567 octets");
    EXPECT_EQ(lengthText(2147483647, french), "2 147 483 647 octets");
    SessionFacts facts = factsOf("a.txt");
    facts.TailleFichier = 1200;
    facts.OuvertEnTexte = facts.utf8 = true;
    EXPECT_EQ(lblLongueur(facts, true, french), "1 200 octets - Unicode (UTF-8) - modifié");
    EXPECT_EQ(lblLongueur({}, false, french), "");
}

TEST(DocumentCard, TipsOfTheHeaderFields) {
    EXPECT_EQ(headerFieldTip(HeaderField::FID, "5555"), "FID:   0x15B3");
    EXPECT_EQ(headerFieldTip(HeaderField::FID, "1"), "FID:   0x1");
    EXPECT_EQ(headerFieldTip(HeaderField::FID, "0"), "FID:   0x0");
    EXPECT_EQ(headerFieldTip(HeaderField::ProductCode, "65535"), "PID:   0xFFFF");
    EXPECT_EQ(headerFieldTip(HeaderField::FID, ""), "");
}

TEST(DocumentCard, ValuesOutsideAListAreItemsOfTheirOwn) {
    const Traduction french;
    EXPECT_EQ(cbbCodepage(1252).index, 2);
    EXPECT_EQ(cbbCodepage(932).index, 13);
    EXPECT_EQ(cbbCodepage(932).items.size(), 14U);
    const CardChoice dos = cbbCodepage(437);
    EXPECT_EQ(dos.items.at(static_cast<std::size_t>(dos.index)), "437");
    EXPECT_EQ(dos.values.at(static_cast<std::size_t>(dos.index)), 437);
    EXPECT_EQ(cbbHeadersize(174, french).index, 4);
    const CardChoice odd = cbbHeadersize(200, french);
    EXPECT_EQ(odd.index, 5);
    EXPECT_EQ(odd.items.at(5), "200 octets : format inconnu");
}

TEST(DocumentCard, HeaderTipListsWhatTheSizeReaches) {
    const Traduction french;
    const std::string beginning =
        " octets.\nCe fichier TYP peut donc contenir, en plus des polygones, polylignes et POI "
        "habituels :\n\tdes POI supplémentaires\n\tdes labels supplémentaires";
    const std::string rest =
        "\n\tdes données encore inconnues\n\tdes polylignes pour l'active routing";
    const std::string size = "La taille de l'entête est de ";
    EXPECT_EQ(cbbHeadersizeTip(91, french), size + "91 octets.");
    EXPECT_EQ(cbbHeadersizeTip(156, french), size + "156" + beginning);
    EXPECT_EQ(cbbHeadersizeTip(174, french), size + "174" + beginning + rest);
    EXPECT_EQ(cbbHeadersizeTip(200, french),
              size + "200" + beginning + rest + "\n\td'autres données encore inconnues...");
}

TEST(DocumentCard, MapsOfAFid) {
    const Traduction french;
    const Profile maps = Profile::parse("[Normal]\n7= Alpes %% Jura%\n8=%\n");
    using Names = std::vector<std::string>;
    EXPECT_EQ(lstFIDs("0007", maps, french), (Names{"Alpes", "Jura"}));
    EXPECT_EQ(lstFIDs("8", maps, french), (Names{"FID Inconnu"}));
    EXPECT_EQ(lstFIDs("9", maps, french), (Names{"FID Inconnu"}));
    const Profile shipped = Profile::load(testing::dataFolder() / "MapId.txt");
    EXPECT_GT(lstFIDs("1101", shipped, french).size(), 1U);
}

TEST(DocumentCard, DateOfAFileThatWasCompiled) {
    Document document;
    EXPECT_EQ(lblDateCreation(document), "");
    document.EnteteTYP.headerSize = 91;
    document.EnteteTYP.year = 2018;
    document.EnteteTYP.month = 12;
    document.EnteteTYP.day = 4;
    EXPECT_EQ(lblDateCreation(document), "04/12/2018    00:00:00");
}

TEST(DocumentCard, FaultsAreToldInWords) {
    const Traduction french;
    EXPECT_TRUE(cardNotices(0, 0, french).empty());
    const auto both = cardNotices(2, 1, french);
    ASSERT_EQ(both.size(), 2U);
    EXPECT_EQ(both[0].kind, JournalKind::error);
    EXPECT_EQ(both[1].text, "Avertissements: cliquer pour afficher le journal des messages");
}

}  // namespace
}  // namespace quillmark
