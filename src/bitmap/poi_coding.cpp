#include "bitmap/poi_coding.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace quillmark {
namespace {

template <unsigned Bits>
void unpack(const std::uint8_t* bytes, std::span<std::uint8_t> values) {
    constexpr std::size_t perByte = 8 / Bits;
    constexpr unsigned mask = (1U << Bits) - 1U;
    const std::size_t whole = values.size() / perByte;
    std::uint8_t* out = values.data();
    for (std::size_t i = 0; i < whole; ++i) {
        for (std::size_t k = 0; k < perByte; ++k) {
            *out++ =
                static_cast<std::uint8_t>(static_cast<unsigned>(bytes[i]) >> (k * Bits) & mask);
        }
    }
    for (std::size_t k = 0; k < values.size() % perByte; ++k) {
        *out++ =
            static_cast<std::uint8_t>(static_cast<unsigned>(bytes[whole]) >> (k * Bits) & mask);
    }
}

}  // namespace

std::optional<int> NbBitsParPixel(int ColorMode, int NbCouleurs) {
    if (ColorMode != kModeOpaque && ColorMode != kModeOneTransparent && ColorMode != kModeAlpha) {
        return std::nullopt;
    }
    // One transparent colour takes a value of its own behind those of the palette.
    const int values = ColorMode == kModeOneTransparent ? NbCouleurs + 1 : NbCouleurs;
    return values < 2 ? 1 : values < 4 ? 2 : values < 16 ? 4 : 8;
}

std::optional<std::size_t> TaillePalette(int NbCouleurs, int ColorMode) {
    const auto count = static_cast<std::size_t>(NbCouleurs);
    switch (ColorMode) {
        case kModeOpaque:
        case kModeOneTransparent:
            return count * 3;
        case kModeAlpha:
            return alphaStreamSize(count);
        default:
            return std::nullopt;
    }
}

int GetRoundedWidth(int bitsPerPixel, int width) {
    const int perByte = 8 / bitsPerPixel;
    return (width + perByte - 1) / perByte * perByte;
}

int LargeurArrondie(int width, int bitsPerPixel) {
    return GetRoundedWidth(bitsPerPixel, width);
}

std::optional<std::size_t> TailleBitmap(const ImagePOI& image, int width, int height) {
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    if (image.NbCouleurs > 0 || image.Retente == -1) {
        const auto bits = NbBitsParPixel(image.ColorMode, image.NbCouleurs);
        if (!bits) {
            return std::nullopt;
        }
        return static_cast<std::size_t>(GetRoundedWidth(*bits, width) * *bits / 8) *
               static_cast<std::size_t>(height);
    }
    switch (image.ColorMode) {
        case kModeOpaque:
            return pixels * 3;
        case kModeOneTransparent:
            return pixels * 3 + 3;
        case kModeAlpha:
            return alphaStreamSize(pixels);
        default:
            return std::nullopt;
    }
}

AlphaColour readAlphaItem(ByteView stream, std::size_t index) {
    // An item is seven nibbles: odd ones begin in the high nibble of a byte and end with a byte.
    const std::size_t first = index / 2 * 7 + index % 2 * 3;
    std::uint32_t bits = 0;
    if (first + 4 <= stream.size()) {
        const std::uint8_t* p = stream.data() + first;
        bits = static_cast<std::uint32_t>(p[0]) | static_cast<std::uint32_t>(p[1]) << 8U |
               static_cast<std::uint32_t>(p[2]) << 16U | static_cast<std::uint32_t>(p[3]) << 24U;
    } else {
        for (std::size_t i = 0; first + i < stream.size(); ++i) {
            bits |= static_cast<std::uint32_t>(stream[first + i]) << (8U * i);
        }
    }
    bits >>= index % 2 * 4;
    return {EchangeRB(static_cast<Couleur>(bits & 0xFFFFFFU)),
            static_cast<std::uint8_t>(bits >> 24U & 15U)};
}

void writeAlphaItem(std::span<std::uint8_t> stream, std::size_t index, AlphaColour item) {
    const std::size_t first = index / 2 * 7 + index % 2 * 3;
    assert(first + 4 <= stream.size());
    const std::uint32_t bits = static_cast<std::uint32_t>(EchangeRB(item.colour)) |
                               static_cast<std::uint32_t>(item.alpha & 15U) << 24U;
    const std::size_t shift = index % 2 * 4;
    const std::uint32_t kept = shift == 0 ? 0xF0000000U : 0x0000000FU;
    std::uint32_t word = bits << shift;
    for (std::size_t i = 0; i < 4; ++i) {
        const std::uint32_t old = stream[first + i] & (kept >> (8U * i) & 0xFFU);
        stream[first + i] = static_cast<std::uint8_t>(old | (word >> (8U * i) & 0xFFU));
    }
}

void unpackRow(ByteView row, int bitsPerPixel, std::span<std::uint8_t> values) {
    const std::size_t perByte = 8U / static_cast<std::size_t>(bitsPerPixel);
    if (row.size() < (values.size() + perByte - 1) / perByte) {
        const auto zeros = values.subspan(row.size() * perByte);
        std::fill(zeros.begin(), zeros.end(), std::uint8_t{0});
        values = values.first(row.size() * perByte);
    }
    switch (bitsPerPixel) {
        case 1:
            return unpack<1>(row.data(), values);
        case 2:
            return unpack<2>(row.data(), values);
        case 4:
            return unpack<4>(row.data(), values);
        default:
            assert(bitsPerPixel == 8);
            std::copy_n(row.data(), values.size(), values.data());
    }
}

void packRow(std::span<const std::uint8_t> values, int bitsPerPixel, std::span<std::uint8_t> row) {
    const auto bits = static_cast<std::size_t>(bitsPerPixel);
    const std::size_t perByte = 8U / bits;
    assert(row.size() >= (values.size() + perByte - 1) / perByte);
    const unsigned mask = (1U << bits) - 1U;
    for (std::size_t i = 0; i < values.size(); ++i) {
        std::uint8_t& byte = row[i / perByte];
        byte = static_cast<std::uint8_t>(byte | (values[i] & mask) << (i % perByte * bits));
    }
}

AlphaColour paletteColour(const ImagePOI& image, std::size_t index) {
    if (image.ColorMode == kModeAlpha) {
        return readAlphaItem(image.Couleurs, index);
    }
    const auto at = [&](std::size_t i) {
        return i < image.Couleurs.size() ? image.Couleurs[i] : std::uint8_t{0};
    };
    return {couleurFromRgb(at(index * 3 + 2), at(index * 3 + 1), at(index * 3)), 0};
}

}  // namespace quillmark
