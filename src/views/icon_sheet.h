// The icon sheet: all objects of a kind in cells, each with its picture and what is said of it.
// Only what is asked for is made.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "bitmap/layers.h"
#include "views/content_cache.h"
#include "views/object_pictures.h"
#include "views/sheet_layout.h"
#include "views/sheet_texts.h"

namespace quillmark {

inline constexpr int kLargestFactor = 8;

struct SheetOptions {
    ObjectKind kind = ObjectKind::Polygone;
    int factor = 1;  // `sldZoomIcons`: 1 to 8
    bool night = false;
    bool blended = false;  // "Aperçu avec transparence"
    LabelMode labels = LabelMode::none;
    int LangueLabels = 1;
    int fontSize = 8;    // points
    int lineHeight = 0;  // of the font, in logical pixels
    double ratio = 1;    // device pixels to a logical one
    // Of the theme: text in colours of activities is made readable on this ground.
    Couleur ground = couleurFromRgb(255, 255, 255);
    Couleur text = 0;
    std::array<Couleur, 6> activities{};  // settings `ActiveRouting_color0` to 5
};

struct SheetLine {
    std::string text;
    Couleur colour = 0;
};

struct SheetCell {
    int index = -1;
    ObjectRef object;
    SheetRectangle frame;                    // on the sheet
    std::shared_ptr<const Picture> picture;  // one pixel a pixel, without ground
    std::vector<SheetLine> lines;            // to be shortened to the width of the cell
};

class IconSheet {
  public:
    // `room` for pictures, in bytes.
    IconSheet(const Document& document, const Traduction& traduction,
              std::size_t room = std::size_t{32} << 20U)
        : document_(document), traduction_(traduction), pictures_(room) {
        refresh();
    }

    // Cells of a kind: objects, and for Extra POI the members of all groups.
    [[nodiscard]] static int cellCount(const Document& document, ObjectKind kind);

    void setOptions(const SheetOptions& options);
    [[nodiscard]] const SheetOptions& options() const { return options_; }
    void setWidth(std::int64_t width);
    // After any change of the document.
    void refresh();

    [[nodiscard]] const SheetLayout& layout() const { return layout_; }
    [[nodiscard]] ObjectRef objectAt(int cell) const;
    // -1 for an object of another kind.
    [[nodiscard]] int cellOf(const ObjectRef& object) const;

    // The cells that a stretch of the sheet shows.
    [[nodiscard]] std::vector<SheetCell> cells(std::int64_t top, std::int64_t height);
    [[nodiscard]] SheetCell cell(int index);
    // Empty where there is no cell.
    [[nodiscard]] std::string tip(int cell);

    // --- Within a cell ---
    // Height of the part for the picture, above the lines.
    [[nodiscard]] int pictureHeight() const;
    // Side of a picture's pixel, in device pixels.
    [[nodiscard]] int pictureScale() const { return scale_; }
    // Where a picture lies in its cell, in device pixels; what passes the cell isn't drawn.
    [[nodiscard]] Rectangle pictureIn(const Image& picture) const;

  private:
    void lay();
    [[nodiscard]] std::shared_ptr<const Picture> pictureOf(const ObjectRef& object);

    const Document& document_;
    const Traduction& traduction_;
    SheetOptions options_;
    std::int64_t width_ = 0;
    SheetLayout layout_;
    int largest_ = 0;  // of points: width or height in pixels
    int scale_ = 1;
    std::vector<int> firstCells_;  // of the groups of Extra POI, and the number of all
    ContentCache<Picture> pictures_;
};

}  // namespace quillmark
