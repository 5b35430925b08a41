// The form in which one picture of a point is edited, and the ways from and to its bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "bitmap/colour.h"
#include "bitmap/image.h"
#include "core/dialogues.h"
#include "core/records.h"
#include "core/translation.h"

namespace quillmark {

// Largest width and height that editors offer, in pixels; files go up to 255.
inline constexpr int TailleMaxBitmap = 128;
// In `Pixels`: a transparent pixel, or none at all.
inline constexpr std::uint8_t kTransparentPixel = 255;
inline constexpr std::size_t kTransparentSlot = 255;

// One byte a pixel, found by column and row. At least `TailleMaxBitmap` square.
class PixelMatrix {
  public:
    // Makes room for pictures of this size; elements that are new hold 255.
    void widen(int width, int height);
    [[nodiscard]] int columns() const noexcept { return columns_; }
    [[nodiscard]] int rows() const noexcept { return rows_; }
    [[nodiscard]] std::uint8_t& operator()(int x, int y) { return values_[place(x, y)]; }
    [[nodiscard]] std::uint8_t operator()(int x, int y) const { return values_[place(x, y)]; }

  private:
    [[nodiscard]] std::size_t place(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(columns_) +
               static_cast<std::size_t>(x);
    }
    int columns_ = TailleMaxBitmap;
    int rows_ = TailleMaxBitmap;
    std::vector<std::uint8_t> values_ = std::vector<std::uint8_t>(
        std::size_t{TailleMaxBitmap} * TailleMaxBitmap, kTransparentPixel);
};

struct PaletteSlot {
    Couleur colour = 0;
    bool filled = false;
    bool visible = false;
    std::string tip;
};

struct PoiWorkingForm {
    int Largeur = 0;     // `cbbLargeur`
    int Hauteur = 0;     // `cbbHauteur`
    int NbCouleurs = 0;  // `cbbNombreCouleurs`; 0: true colours
    int ColorMode = 0;   // of `cbbColorMode`, whose index is this divided by 16
    int Zoom = 0;        // a pixel is shown as Zoom + 1 pixels of the screen

    std::array<PaletteSlot, 256> lblpalette;  // slot 255 is "Transparent", no colour
    bool writeWithPalette = false;            // `Retente`: 0 colours, yet coded as indices

    PixelMatrix Pixels;                      // palette index; with true colours 0 or 255
    PixelMatrix AlphaPixels;                 // true colours of mode 0x20 only
    std::vector<std::uint8_t> AlphaPalette;  // mode 0x20 with palette only
    Couleur CouleurTransparente = -1;        // true colours of mode 0x10; -1: none yet
    Couleur background = couleurFromRgb(240, 240, 240);  // shown for transparent pixels
    Image image;                                         // colours of the pixels
};

// True colours have none to work on.
[[nodiscard]] inline bool hasPalette(const PoiWorkingForm& form) {
    return form.NbCouleurs > 0 || form.writeWithPalette;
}

// Decodes a picture into the form. Bytes that are missing count as 0. Throws Failure (13
// conversion), with the form as it was, when the colour mode is none of the three.
void chargement_bitmap(PoiWorkingForm& form, const ImagePOI& source, int width, int height,
                       const Traduction& traduction);

// Encodes the form. On a refusal, which is told to the user, `erreur` is set and `target` is as
// it was.
void ecriture_bitmap(const PoiWorkingForm& form, ImagePOI& target, bool& erreur,
                     Dialogues& dialogues, const Traduction& traduction);
// Packs `Pixels` into `octets`, which has the size of the picture.
void ecriture_octets_bitmap(const PoiWorkingForm& form, Bytes& octets, bool& erreur,
                            Dialogues& dialogues, const Traduction& traduction);

// After a change of `Largeur`, `Hauteur` or `Zoom`: the image follows, and what lies outside
// becomes transparent.
void ajuster_bitmap(PoiWorkingForm& form);
// `Entete` of an accepted point: its bit 0x01 is clear only when day and night share their pixels.
// Without a night picture it stays as it was.
[[nodiscard]] std::uint8_t nightFlags(std::uint8_t Entete, const ImagePOI& day,
                                      const ImagePOI& night);
// The enlarged view.
[[nodiscard]] Image dessine(const PoiWorkingForm& form);

// Percentage that is shown beside an alpha of 0 to 15.
[[nodiscard]] constexpr int alphaPercentage(int alpha) {
    return alpha * 100 / 15;
}
// "canal alpha = 5   transparence: 33%"
[[nodiscard]] std::string alphaTip(int alpha, const Traduction& traduction);

}  // namespace quillmark
