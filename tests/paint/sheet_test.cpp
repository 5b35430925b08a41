#include <gtest/gtest.h>

#include "core/errors.h"
#include "paint/png_writer.h"
#include "paint/qt_image.h"
#include "paint/sheet_painter.h"
#include "paint/sheet_png.h"
#include "support/picture_text.h"
#include "text/labels.h"

namespace quillmark {
namespace {

using testing::imageOf;
using testing::Rows;
using testing::rowsOf;
using testing::storedColours;

Image fromQt(const QImage& shown) {
    const QImage image = shown.convertToFormat(QImage::Format_RGB32);
    Image result(image.width(), image.height());
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            result.setPixel(x, y, toCouleur(image.pixel(x, y)));
        }
    }
    return result;
}

Image decoded(const Bytes& png) {
    const QImage image = QImage::fromData(png.data(), static_cast<int>(png.size()), "PNG");
    EXPECT_FALSE(image.isNull());
    return fromQt(image);
}

// Four pixels, one of them transparent, by day; all blue by night.
Document onePoint() {
    Document document;
    document.CodePage = 65001;
    POI poi;
    poi.Type = "02f";
    poi.SubType = "06";
    poi.Largeur = poi.Hauteur = 2;
    poi.Entete = 0x03;
    poi.Image[0] = {3, 0x10, storedColours("rgb"), {0x10, 0x32}, 0};  // r g / b .
    poi.Image[1] = {1, 0x00, storedColours("b"), {0, 0}, 0};
    document.POI.push_back(poi);
    return document;
}

TEST(Png, RowsComeBackAsTheyWent) {
    constexpr int kWidth = 321;
    constexpr int kHeight = 500;
    PngWriter png(kWidth, kHeight);
    Image expected(kWidth, kHeight);
    std::uint32_t random = 1;
    for (int y = 0; y < kHeight; ++y) {
        Bytes row;
        for (int x = 0; x < kWidth; ++x) {
            random = random * 1664525U + 1013904223U;
            const Couleur colour = static_cast<Couleur>(random >> 8U);
            expected.setPixel(x, y, colour);
            row.insert(row.end(), {redOf(colour), greenOf(colour), blueOf(colour)});
        }
        png.row(row);
    }
    EXPECT_EQ(decoded(png.finish()), expected);
}

TEST(SheetPainter, PicturesStandOnTheirGroundInWholePixels) {
    const Document document = onePoint();
    const Traduction traduction;
    for (const int ratio : {1, 2}) {
        IconSheet sheet(document, traduction);
        SheetOptions options;
        options.kind = ObjectKind::POI;
        options.ratio = ratio;
        sheet.setOptions(options);
        sheet.setWidth(48);
        QImage canvas(48 * ratio, 48 * ratio, QImage::Format_RGB32);
        canvas.setDevicePixelRatio(ratio);
        QPainter painter(&canvas);
        SheetPainter cells;
        cells.setTheme({QFont(), Qt::white, Qt::black, Qt::red, Ground::map});
        cells.afficheIcone(painter, sheet, sheet.cell(0), {0, 0}, false);
        painter.end();
        const Image shown = fromQt(canvas);
        const int place = 23 * ratio;
        EXPECT_EQ(rowsOf(shown, {place - 1, place - 1, 4, 4}),
                  ratio == 1 ? (Rows{"wwww", "wrgw", "wbLw", "wwww"})
                             : (Rows{"wwww", "wrrg", "wrrg", "wbbL"}));
        // The frame on two sides, which neighbours share.
        EXPECT_EQ(shown.pixel(0, 48 * ratio - 1), testing::colourOf('k'));
        EXPECT_EQ(shown.pixel(48 * ratio - 1, 0), testing::colourOf('k'));
        EXPECT_EQ(shown.pixel(0, 0), testing::colourOf('w'));
    }
}

TEST(SheetPng, ShowsAllCellsOfTheKind) {
    Document document = onePoint();
    document.POI.resize(43, document.POI[0]);
    SheetPngOptions options;
    options.kind = ObjectKind::POI;
    options.factor = 2;
    const Image day = decoded(sheetPng(document, {}, options));
    EXPECT_EQ(day.width(), 20 * 96);
    EXPECT_EQ(day.height(), 3 * 96);
    EXPECT_EQ(rowsOf(day, {2 * 96 + 46, 2 * 96 + 46, 4, 4}),
              (Rows{"rrgg", "rrgg", "bbLL", "bbLL"}));
    EXPECT_EQ(rowsOf(day, {3 * 96 + 46, 2 * 96 + 46, 2, 1}), Rows{"ww"});
    options.night = true;
    EXPECT_EQ(rowsOf(decoded(sheetPng(document, {}, options)), {46, 46, 4, 4}), Rows(4, "bbbb"));
    options.kind = ObjectKind::Polygone;
    const Image empty = decoded(sheetPng(document, {}, options));
    EXPECT_EQ(empty, Image(96, 96, testing::colourOf('w')));

    document.ExtraPOI.resize(1000);
    for (ExtraPOI& group : document.ExtraPOI) {
        group.POI.resize(60);
    }
    options.kind = ObjectKind::ExtraPOI;
    options.factor = 8;
    EXPECT_THROW(static_cast<void>(sheetPng(document, {}, options)), Failure);
}

TEST(SheetPng, LabelsStandBelowThePicture) {
    Document document = onePoint();
    SheetPngOptions options;
    options.kind = ObjectKind::POI;
    const auto darkPixels = [&](const Image& image) {
        int count = 0;
        for (int y = 48; y < image.height() - 1; ++y) {
            for (int x = 0; x < 47; ++x) {
                count += greenOf(image.pixel(x, y)) < 128 ? 1 : 0;
            }
        }
        return count;
    };
    options.labels = LabelMode::typeAndText;
    const Image typeOnly = decoded(sheetPng(document, {}, options));
    EXPECT_GT(typeOnly.height(), 48 + 2 * 8);
    EXPECT_GT(darkPixels(typeOnly), 20);
    document.POI[0].Entete |= 0x04U;
    document.POI[0].Strings = encodeStrings({{1, "Banque"}}, 65001).Strings;
    EXPECT_GT(darkPixels(decoded(sheetPng(document, {}, options))), darkPixels(typeOnly) + 20);
}

}  // namespace
}  // namespace quillmark
