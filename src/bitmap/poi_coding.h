// Sizes and bytes of POI pictures: palettes, indexed pixels and true-colour pixels in the three
// colour modes 0x00 (opaque), 0x10 (one transparent colour) and 0x20 (4 bits of alpha a colour).
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "bitmap/colour.h"
#include "core/bytes.h"
#include "core/records.h"

namespace quillmark {

inline constexpr int kModeOpaque = 0x00;
inline constexpr int kModeOneTransparent = 0x10;
inline constexpr int kModeAlpha = 0x20;

// Bits per pixel of a picture with palette: 1, 2, 4 or 8; nothing for an unknown colour mode.
[[nodiscard]] std::optional<int> NbBitsParPixel(int ColorMode, int NbCouleurs);
// Bytes of a palette; nothing for an unknown colour mode.
[[nodiscard]] std::optional<std::size_t> TaillePalette(int NbCouleurs, int ColorMode);
// Width in pixels of a row widened to whole bytes.
[[nodiscard]] int GetRoundedWidth(int bitsPerPixel, int width);
[[nodiscard]] int LargeurArrondie(int width, int bitsPerPixel);
// Bytes of `Bitmap` for a picture of this size, by `NbCouleurs`, `ColorMode` and `Retente`;
// nothing when the colour mode is unknown.
[[nodiscard]] std::optional<std::size_t> TailleBitmap(const ImagePOI& image, int width, int height);

// One colour of a mode 0x20 stream; alpha 0 is opaque, 15 fully transparent.
struct AlphaColour {
    Couleur colour = 0;
    std::uint8_t alpha = 0;
    bool operator==(const AlphaColour&) const = default;
};
// Item `index` of a stream of 28-bit items (24 bits of colour, 4 of alpha, lowest bit first).
// Bytes that aren't there count as 0.
[[nodiscard]] AlphaColour readAlphaItem(ByteView stream, std::size_t index);
// `stream` must be large enough for the item.
void writeAlphaItem(std::span<std::uint8_t> stream, std::size_t index, AlphaColour item);
// Bytes of a stream of `count` items.
[[nodiscard]] constexpr std::size_t alphaStreamSize(std::size_t count) {
    return (count * 7 + 1) / 2;
}

// Unpacks one row of indexed pixels, `values.size()` of them, from its first byte on.
// Bytes that aren't there count as 0.
void unpackRow(ByteView row, int bitsPerPixel, std::span<std::uint8_t> values);
// Packs one row; `row` must hold it and be zero before.
void packRow(std::span<const std::uint8_t> values, int bitsPerPixel, std::span<std::uint8_t> row);

// Palette colour `index` (blue first on disk) in any of the three modes.
[[nodiscard]] AlphaColour paletteColour(const ImagePOI& image, std::size_t index);

}  // namespace quillmark
