#include "batch/options.h"
#include "batch_run.h"

namespace quillmark {
namespace {

using testing::runBatch;
using Arguments = std::vector<std::string>;

TEST(Usage, WrongOnesAreToldOnStandardErrorAndEndWithThree) {
    for (const std::string line : {"",
                                   "convert a b",
                                   "text",
                                   "text a",
                                   "typ a b c",
                                   "check",
                                   "info --utf8 a",
                                   "text a b --fid 1",
                                   "typ a b --utf8",
                                   "typ a b --unknown",
                                   "typ a b --header 100",
                                   "typ a b --header",
                                   "typ a b --fid 0",
                                   "typ a b --fid 65536",
                                   "typ a b --fid 12x",
                                   "typ a b --product=",
                                   "typ a b --codepage 4711",
                                   "text a b --poi-code medium",
                                   "text a b --utf8=yes",
                                   "text '' b",
                                   "typ a ''",
                                   "icons a",
                                   "icons a b --kind point",
                                   "icons a b --zoom 9",
                                   "icons a b --labels all",
                                   "icons a b --language 55",
                                   "icons a b --fid 1",
                                   "typ a b --night",
                                   "check - a -",
                                   "check a --language",
                                   "--utf8 text a b"}) {
        std::istringstream words(line);
        Arguments arguments;
        for (std::string word; words >> word;) {
            arguments.push_back(word == "''" ? "" : word);
        }
        const auto run = runBatch(arguments);
        EXPECT_EQ(run.status, 3) << line;
        EXPECT_EQ(run.out, "") << line;
        EXPECT_EQ(run.err.rfind("quillmark-batch: ", 0), 0U) << line << run.err;
    }
}

TEST(Usage, OptionsStandAnywhereBehindTheCommand) {
    const auto options = std::get<BatchOptions>(
        parseOptions({"typ", "--fid=4711", "in.txt", "--header", "174", "--product", "65535",
                      "--codepage=1251", "--", "--out.typ"}));
    EXPECT_EQ(options.command, Command::typ);
    EXPECT_EQ(options.inputs, Arguments{"in.txt"});
    EXPECT_EQ(options.output, "--out.typ");
    EXPECT_EQ(options.fid, 4711);
    EXPECT_EQ(options.productCode, 65535);
    EXPECT_EQ(options.headerSize, 174);
    EXPECT_EQ(options.codePage, 1251);
}

TEST(Usage, BehindIconsANumberIsTheLanguageOfTheLabels) {
    const auto options = std::get<BatchOptions>(
        parseOptions({"icons", "a", "b.png", "--kind=extrapoi", "--night", "--zoom", "8",
                      "--labels", "both", "--language", "0", "--language", "English"}));
    EXPECT_EQ(options.output, "b.png");
    EXPECT_EQ(options.kind, ObjectKind::ExtraPOI);
    EXPECT_TRUE(options.night);
    EXPECT_EQ(options.zoom, 8);
    EXPECT_EQ(options.labels, LabelMode::typeAndText);
    EXPECT_EQ(options.labelLanguage, 0);
    EXPECT_EQ(options.language, "English");
    EXPECT_EQ(std::get<BatchOptions>(parseOptions({"check", "a", "--language=4"})).language, "4");
}

TEST(Usage, HelpAndVersionAnswerOnStandardOutput) {
    for (const Arguments& arguments : {Arguments{"--help"}, {"-h"}, {"typ", "--help"}}) {
        const auto run = runBatch(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        for (const char* word :
             {"text ", "typ ", "icons ", "check ", "info ", "--utf8", "--poi-code",
              "--no-true-colours", "--no-header", "--header", "--fid", "--product", "--codepage",
              "--kind", "--night", "--zoom", "--labels", "--language", "--version"}) {
            EXPECT_TRUE(testing::holds(run.out, word)) << word;
        }
    }
    EXPECT_EQ(runBatch({"--version"}).out.rfind("quillmark-batch 0.", 0), 0U);
}

TEST(Usage, AClosedOutputIsAnError) {
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    EXPECT_EQ(quillmark::runBatch({"--help"}, in, out, err), 2);
    EXPECT_NE(err.str(), "");
}

}  // namespace
}  // namespace quillmark
