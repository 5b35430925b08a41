// The records of a TYP document. An object stays in the form it has on disk: colours, bitmaps and
// labels are raw bytes, so that an object nobody edits is written back byte for byte; only the
// identity is text.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/bytes.h"

namespace quillmark {

// Kinds of objects, with the numbers that `ObjetCourant` and `ObjetVisualise` use.
enum class ObjectKind : std::int16_t {
    none = 0,
    Polygone = 1,
    Polyline = 2,
    POI = 3,
    ExtraPOI = 4
};

// A 32 by 32 one-bit pattern: 4 bytes a row, lowest bit first.
inline constexpr std::size_t kPolygonBitmapSize = 128;

// Bits of the first byte of polygons and lines: how many colours there are, and for what.
namespace colour_bits {
inline constexpr std::uint8_t kNight = 0x01;
inline constexpr std::uint8_t kDayTransparent = 0x02;  // one colour by day
inline constexpr std::uint8_t kNightTransparent = 0x04;
inline constexpr std::uint8_t kAll = 0x07;
}  // namespace colour_bits

// The other bits of a polygon's first byte.
namespace polygon_bits {
inline constexpr std::uint8_t kBitmap = 0x08;
inline constexpr std::uint8_t kStrings = 0x10;
inline constexpr std::uint8_t kExtendedLabels = 0x20;
inline constexpr std::uint8_t kAlpha = 0x40;
inline constexpr std::uint8_t kUnknown = 0x80;
inline constexpr std::uint8_t kLayout = colour_bits::kAll | kBitmap;
}  // namespace polygon_bits

// Bits of a line's second byte.
namespace line_bits {
inline constexpr std::uint8_t kStrings = 0x01;
inline constexpr std::uint8_t kNoOrientation = 0x02;  // `UseOrientation` is off
inline constexpr std::uint8_t kExtendedLabels = 0x04;
}  // namespace line_bits

// Bits of a point's first byte.
namespace point_bits {
inline constexpr std::uint8_t kOwnNightPixels = 0x01;
inline constexpr std::uint8_t kNight = 0x02;
inline constexpr std::uint8_t kStrings = 0x04;
inline constexpr std::uint8_t kExtendedLabels = 0x08;
}  // namespace point_bits

// The pattern decoded to one byte a pixel isn't kept here: views decode it when they need it.
struct Polygone {
    std::string Type;         // 3 lower-case hexadecimal digits
    std::string SubType;      // 2 lower-case hexadecimal digits
    std::string Offset;       // decimal, from the start of the polygon data
    std::uint8_t Entete = 0;  // colour_bits and polygon_bits
    Bytes Couleurs;           // 3 bytes a colour, blue first
    Bytes Alpha;              // one byte a colour
    std::array<std::uint8_t, kPolygonBitmapSize> Bitmap{};
    Bytes Strings;              // with its length prefix
    std::int32_t Longueur = 0;  // length of the record in the file, in bytes
    Bytes ExtendedLabels;
    std::string CustomMPCName;  // text files only
    std::string Comment;        // text files only

    bool operator==(const Polygone&) const = default;
};

struct Polyline {
    std::string Type;
    std::string SubType;
    std::string Offset;        // decimal, from the start of the polyline data
    std::uint8_t Entete = 0;   // colour_bits, and the number of bitmap rows in bits 3 to 7
    std::uint8_t Entete2 = 0;  // line_bits
    Bytes Couleurs;
    Bytes Bitmap;  // 4 bytes a row, or the one or two width bytes without rows
    Bytes Strings;
    std::int32_t Longueur = 0;
    Bytes ExtendedLabels;
    std::array<std::uint8_t, 2> ActiveRouting{};  // 0, 0 on an ordinary line
    std::string CustomMPCName;
    std::string Comment;

    [[nodiscard]] bool isActiveRouting() const {
        return ActiveRouting[0] != 0 || ActiveRouting[1] != 0;
    }
    bool operator==(const Polyline&) const = default;
};

// One picture of a point.
struct ImagePOI {
    std::uint8_t NbCouleurs = 0;  // 0: no palette
    std::uint8_t ColorMode = 0;   // 0x00, 0x10 or 0x20
    Bytes Couleurs;               // palette as on disk
    Bytes Bitmap;                 // pixels as on disk
    std::int16_t Retente = 0;     // -1: 0 colours, yet the pixels are coded as with a palette

    bool operator==(const ImagePOI&) const = default;
};

struct POI {
    std::string Type;
    std::string SubType;
    std::int32_t Offset = 0;   // from the start of the POI data, in bytes
    std::uint8_t Entete = 0;   // point_bits
    std::uint8_t Largeur = 0;  // pixels
    std::uint8_t Hauteur = 0;
    std::array<ImagePOI, 2> Image;  // day, night
    Bytes Strings;
    std::int32_t Longueur = 0;
    Bytes ExtendedLabels;
    std::string CustomMPCName;
    std::string Comment;

    bool operator==(const POI&) const = default;
};

// A group of points of one brand. Its members have no type of their own.
struct ExtraPOI {
    std::int32_t BrandID = 0;  // 1 to 4 bytes on disk
    std::int32_t Offset = 0;   // from the start of the Extra POI data, in bytes
    std::uint8_t NbPOI = 0;
    std::vector<quillmark::POI> POI;

    bool operator==(const ExtraPOI&) const = default;
};

// Number of colours that a Polygone or Polyline with this first byte stores, -1 when the byte
// names no layout.
[[nodiscard]] constexpr int NombreCouleurs(std::uint8_t Entete) {
    constexpr std::array<int, 8> counts{2, 4, -1, 3, -1, 3, 1, 2};
    return counts[Entete & colour_bits::kAll];
}
// Whether a polygon is known to have this layout; text can spell no other.
[[nodiscard]] constexpr bool isKnownPolygon(std::uint8_t Entete) {
    const int layout = Entete & polygon_bits::kLayout;
    return layout >= 6 && layout != 10 && layout != 12;
}

// `Type` and `SubType` from the 16-bit value of an index entry, and back. Digits that aren't
// hexadecimal count as the end of the number, as does an empty text.
void setIdentity(std::string& Type, std::string& SubType, std::uint16_t value);
[[nodiscard]] int typeValue(const std::string& Type);
// Type * 32 + SubType; above 0xFFFF when the type doesn't fit on disk.
[[nodiscard]] int identityValue(const std::string& Type, const std::string& SubType);

// `value` in lower-case hexadecimal, with zeros on the left up to `digits`.
[[nodiscard]] std::string hexText(std::uint32_t value, std::size_t digits);
// The same in capitals.
[[nodiscard]] std::string hexTextUpper(std::uint32_t value, std::size_t digits);

}  // namespace quillmark
