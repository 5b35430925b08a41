// Pictures of polygons and lines as they are seen.
#pragma once

#include <optional>

#include "bitmap/picture.h"
#include "core/records.h"

namespace quillmark {

inline constexpr int kPatternSide = 32;  // of a polygon's tile, and width of a line's

// Which stored colours a picture takes, as indexes in `Couleurs`; -1 is transparent.
struct ColourPair {
    int first = -1;   // bits that are set; the line itself
    int second = -1;  // bits that are clear; the border of a line
    bool operator==(const ColourPair&) const = default;
};
struct ColourRoles {
    ColourPair day;
    ColourPair night;  // as the day without night colours
    bool operator==(const ColourRoles&) const = default;
};
// Nothing for a first byte that stores no colours.
[[nodiscard]] std::optional<ColourRoles> colourRoles(std::uint8_t Entete);

[[nodiscard]] constexpr bool hasNightColours(std::uint8_t Entete) {
    return (Entete & colour_bits::kNight) != 0;
}

// The tile of 32 by 32. `blended`: its alpha takes effect; otherwise it is drawn in plain colours.
[[nodiscard]] Picture polygonPicture(const Polygone& polygone, bool night, bool blended);

// Width and border of a line without rows, in pixels.
struct LineWidths {
    int width = 0;
    int border = 0;  // on either side
    [[nodiscard]] int height() const { return width + 2 * border; }
};
[[nodiscard]] LineWidths lineWidths(const Polyline& polyline);

// A tile 32 wide and as high as the line; empty for a line without width.
[[nodiscard]] Picture linePicture(const Polyline& polyline, bool night);

}  // namespace quillmark
