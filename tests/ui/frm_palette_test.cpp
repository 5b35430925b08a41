#include "ui/frm_palette.h"

#include <QColorDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include "bitmap/garmin_swatches.h"
#include "editors/recent_colours.h"
#include "ui/number_box.h"
#include "ui/program.h"
#include "ui/screen_cover.h"

namespace quillmark {
namespace {

using testing::Program;

constexpr Couleur kRed = couleurFromRgb(255, 0, 0);
constexpr Couleur kBlue = couleurFromRgb(0, 0, 255);

// A screen that the test points at.
struct TestScreen : ScreenColour {
    explicit TestScreen(bool works = true) : works(works) {}
    void probe(std::function<void(bool)> answer) override { answer(works); }
    void pick(QWidget& /*window*/, Seen see, Ended end) override {
        seen = std::move(see);
        ended = std::move(end);
    }
    void giveUp() override { ended = {}; }
    bool works;
    Seen seen;
    Ended ended;
};

struct Chooser {
    explicit Chooser(bool screenWorks = true) {
        auto made = std::make_unique<TestScreen>(screenWorks);
        screen = made.get();
        window = std::make_unique<frmPalette>(
            nullptr, program.context,
            ChooserRequest{kRed, [this](Couleur colour) { told.push_back(colour); },
                           ChooserTab::series60},
            std::move(made));
        window->show();
    }
    template <typename Control = QWidget>
    Control& control(const char* name) {
        return *window->findChild<Control*>(QLatin1String(name));
    }
    QString text() { return control<QLabel>("lblCouleurTexte").text(); }

    Program program;
    std::vector<Couleur> told;
    TestScreen* screen = nullptr;
    std::unique_ptr<frmPalette> window;
};

TEST(FrmPalette, TabsShowTheirPanels) {
    Chooser chooser;
    for (const auto& [tab, palette, field] :
         {std::tuple{1, false, true}, {2, true, true}, {0, true, false}}) {
        chooser.control<QTabBar>("TabStrip1").setCurrentIndex(tab);
        for (const char* name : {"Picture1", "picVoisines"}) {
            EXPECT_EQ(chooser.control(name).isVisible(), palette) << tab << name;
        }
        for (const char* name : {"Picture2", "sldLum", "picHLSRGB"}) {
            EXPECT_EQ(chooser.control(name).isVisible(), field) << tab << name;
        }
    }
}

TEST(FrmPalette, ASwatchAndOKYieldAColour) {
    Chooser chooser;
    // The middle of the third swatch in the second row.
    QWidget& palette = chooser.control("Picture1");
    const int column = palette.width() / kSwatchColumns;
    QTest::mouseClick(&palette, Qt::LeftButton, {}, QPoint(column * 5 / 2 + 3, 33));
    const Couleur expected = couleurDuCarre(kSwatchColumns + 3);
    EXPECT_EQ(chooser.told, std::vector{expected});
    QTest::keyClick(&palette, Qt::Key_Left);
    QTest::keyClick(&palette, Qt::Key_Right);
    chooser.control<QPushButton>("cmdOK").click();
    EXPECT_EQ(chooser.window->CouleurChoisie(), expected);
    EXPECT_EQ(chooser.window->result(), QDialog::Accepted);
    EXPECT_EQ(recentColours(chooser.program.settings), std::vector{expected});
}

TEST(FrmPalette, FieldsTakeWhatIsTypedAndEscapeGivesTheFirstColourBack) {
    Chooser chooser;
    chooser.control<QTabBar>("TabStrip1").setCurrentIndex(1);
    auto& red = chooser.control<NumberBox>("txtRed");
    auto& line = *red.findChild<QLineEdit*>();
    EXPECT_EQ(line.text(), QStringLiteral("31"));
    line.clear();
    QTest::keyClicks(&line, QStringLiteral("10x"));
    EXPECT_EQ(line.text(), QStringLiteral("10"));
    EXPECT_EQ(chooser.text(), QStringLiteral("#520000"));
    // A digit too many and a letter change nothing, wherever they are typed.
    auto& hue = *chooser.control<NumberBox>("txtHue").findChild<QLineEdit*>();
    hue.selectAll();
    QTest::keyClicks(&hue, QStringLiteral("120"));
    hue.setCursorPosition(1);
    QTest::keyClicks(&hue, QStringLiteral("1x"));
    EXPECT_EQ(hue.text(), QStringLiteral("120"));
    EXPECT_EQ(hue.cursorPosition(), 1);
    line.selectAll();
    QTest::keyClicks(&line, QStringLiteral("10"));
    // Steps go on from what stands there and not from what its colour would show.
    red.stepBy(1);
    EXPECT_EQ(line.text(), QStringLiteral("11"));
    QTest::keyClicks(&line, QStringLiteral("99"));
    EXPECT_EQ(line.text(), QStringLiteral("31"));
    QTest::keyClick(&line, Qt::Key_Escape);
    EXPECT_EQ(chooser.told.back(), kRed);
    EXPECT_EQ(chooser.window->CouleurChoisie(), std::nullopt);
    EXPECT_FALSE(chooser.window->isVisible());
}

TEST(FrmPalette, TheScreenGivesAColourOrNothing) {
    Chooser chooser;
    auto& pick = chooser.control<QPushButton>("picPicker");
    pick.click();
    chooser.screen->seen(kBlue);
    EXPECT_EQ(chooser.text(), QStringLiteral("#0000FF"));
    // Escape ends the look at the screen alone.
    QTest::keyClick(chooser.window.get(), Qt::Key_Escape);
    EXPECT_EQ(chooser.text(), QStringLiteral("#FF0000"));
    EXPECT_TRUE(chooser.window->isVisible());
    EXPECT_FALSE(chooser.screen->ended);
    pick.click();
    chooser.screen->ended(kBlue);
    EXPECT_EQ(chooser.told, std::vector{kBlue});
    // The desktop's dialog ends it too, and its answer counts.
    pick.click();
    chooser.control<QPushButton>("cmdAutres").click();
    EXPECT_FALSE(chooser.screen->ended);
    auto& dialog = chooser.control<QColorDialog>("dlgCouleur");
    dialog.setCurrentColor(QColor(0, 255, 0));
    dialog.accept();
    EXPECT_EQ(chooser.text(), QStringLiteral("#00FF00"));
    // So does a choice in the window.
    pick.click();
    QTest::mouseClick(&chooser.control("lblCouleurInitiale"), Qt::LeftButton);
    EXPECT_FALSE(chooser.screen->ended);
    EXPECT_EQ(chooser.told.back(), kRed);

    // The cancel button ends all at once.
    pick.click();
    chooser.control<QPushButton>("cmdAnnuler").click();
    EXPECT_FALSE(chooser.window->isVisible());

    Chooser blind(false);
    EXPECT_FALSE(blind.control<QPushButton>("picPicker").isEnabled());
    EXPECT_FALSE(blind.control<QPushButton>("picPicker").toolTip().isEmpty());
}

TEST(ScreenCover, YieldsThePixelUnderTheReleaseAtAnyScale) {
    QPixmap picture(200, 100);
    picture.fill(QColor(0, 0, 255));
    QPainter(&picture).fillRect(20, 20, 2, 2, QColor(255, 0, 0));
    picture.setDevicePixelRatio(2);
    std::vector<Couleur> seen;
    std::vector<std::optional<Couleur>> ended;
    const auto cover = [&] {
        auto made = std::make_unique<ScreenCover>(
            nullptr, picture, [&](Couleur colour) { seen.push_back(colour); },
            [&](std::optional<Couleur> colour) { ended.push_back(colour); });
        made->resize(100, 50);
        made->show();
        return made;
    };
    const auto left = cover();
    QTest::mouseMove(left.get(), QPoint(5, 5));
    QTest::mousePress(left.get(), Qt::LeftButton, {}, QPoint(10, 10));
    EXPECT_TRUE(ended.empty());
    QTest::mouseRelease(left.get(), Qt::LeftButton, {}, QPoint(10, 10));
    const auto right = cover();
    QTest::mouseClick(right.get(), Qt::RightButton, {}, QPoint(10, 10));
    const auto escape = cover();
    QTest::keyClick(escape.get(), Qt::Key_Escape);
    EXPECT_EQ(seen, std::vector{kBlue});
    EXPECT_EQ(ended, (std::vector<std::optional<Couleur>>{kRed, std::nullopt, std::nullopt}));
}

}  // namespace
}  // namespace quillmark
