#include "paint/sheet_png.h"

#include <QGuiApplication>
#include <array>
#include <cstdio>
#include <memory>

#include "core/errors.h"
#include "core/settings_table.h"
#include "paint/png_writer.h"
#include "paint/sheet_painter.h"

namespace quillmark {
namespace {

constexpr int kCellsInRow = 20;
constexpr int kWidest = 8192;                        // pixels
constexpr std::int64_t kMostPixels = 8'000'000'000;  // minutes of work
constexpr int kFontSize = 8;                         // points
constexpr double kPixelsInPoint = 96.0 / 72;

// Text needs the toolkit's application for its fonts; a window system it doesn't need.
class FontSource {
  public:
    FontSource() {
        if (QCoreApplication::instance() == nullptr) {
            // What it says of folders and displays is of no use to who asked for a picture.
            const auto handler = qInstallMessageHandler(
                [](QtMsgType type, const QMessageLogContext&, const QString& message) {
                    if (type == QtFatalMsg) {
                        std::fputs(message.toLocal8Bit().constData(), stderr);
                    }
                });
            application_ = std::make_unique<QGuiApplication>(count_, words_.data());
            qInstallMessageHandler(handler);
        }
    }

  private:
    std::array<char, 10> program_{"quillmark"};
    std::array<char, 10> option_{"-platform"};
    std::array<char, 10> value_{"offscreen"};
    std::array<char*, 4> words_{program_.data(), option_.data(), value_.data(), nullptr};
    int count_ = 3;
    std::unique_ptr<QGuiApplication> application_;
};

SheetOptions sheetOptions(const SheetPngOptions& options) {
    SheetOptions result;
    result.kind = options.kind;
    result.factor = options.factor;
    result.night = options.night;
    result.labels = options.labels;
    result.LangueLabels = options.LangueLabels;
    result.fontSize = kFontSize;
    for (std::size_t i = 0; i < result.activities.size(); ++i) {
        result.activities[i] = std::stoi(std::string(keys::kActiveRoutingColor[i].defaut));
    }
    return result;
}

void writeBand(PngWriter& png, const QImage& band) {
    const QImage rows = band.convertToFormat(QImage::Format_RGB888);
    const auto size = static_cast<std::size_t>(rows.width()) * 3;
    for (int y = 0; y < rows.height(); ++y) {
        png.row(ByteView(rows.constScanLine(y), size));
    }
}

}  // namespace

Bytes sheetPng(const Document& document, const Traduction& traduction,
               const SheetPngOptions& options) {
    std::unique_ptr<FontSource> fonts;
    SheetTheme theme{QFont(), Qt::white, QColor(0xC8, 0xC8, 0xC8), Qt::black, Ground::map};
    SheetOptions shown = sheetOptions(options);
    if (labelLines(options.labels) > 0) {
        fonts = std::make_unique<FontSource>();
        theme.font = QFont();
        theme.font.setPixelSize(qRound(kFontSize * kPixelsInPoint));
        shown.lineHeight = sheetLineHeight(theme.font);
    }
    SheetPainter cells(0);  // each is painted once
    cells.setTheme(theme);
    IconSheet sheet(document, traduction);
    sheet.setOptions(shown);
    const int columns = std::clamp(kWidest / sheet.layout().cellWidth(), 1, kCellsInRow);
    sheet.setWidth(std::int64_t{columns} * sheet.layout().cellWidth());

    const SheetLayout& layout = sheet.layout();
    const int shownColumns = std::clamp(layout.count(), 1, columns);
    const QSize bandSize(shownColumns * layout.cellWidth(), layout.cellHeight());
    const int bands = std::max(1, layout.rows());
    if (std::int64_t{bandSize.width()} * bandSize.height() * bands > kMostPixels) {
        throw Failure(ErrorNumber::overflow, "the picture would be too large");
    }
    PngWriter png(
        static_cast<std::uint32_t>(bandSize.width()),
        static_cast<std::uint32_t>(bandSize.height()) * static_cast<std::uint32_t>(bands));
    QImage band(bandSize, QImage::Format_RGB32);
    for (int row = 0; row < bands; ++row) {
        const std::int64_t top = std::int64_t{row} * bandSize.height();
        band.fill(theme.ground);
        QPainter painter(&band);
        for (const SheetCell& cell : sheet.cells(top, bandSize.height())) {
            cells.afficheIcone(painter, sheet, cell, QPoint(static_cast<int>(cell.frame.x), 0),
                               false);
        }
        painter.end();
        writeBand(png, band);
    }
    return png.finish();
}

}  // namespace quillmark
