#include "bitmap/poi_editing.h"

#include <algorithm>
#include <cassert>

#include "bitmap/poi_coding.h"

namespace quillmark {
namespace {

void putColour(std::uint8_t* target, Couleur colour) {
    const Couleur blueFirst = EchangeRB(colour);
    target[0] = redOf(blueFirst);
    target[1] = greenOf(blueFirst);
    target[2] = blueOf(blueFirst);
}

Couleur colourAt(ByteView bytes, std::size_t position) {
    const auto at = [&](std::size_t i) { return i < bytes.size() ? bytes[i] : std::uint8_t{0}; };
    return couleurFromRgb(at(position + 2), at(position + 1), at(position));
}

// Calls `visit(x, y, i)` for all pixels, row after row; i counts from 0.
template <typename Visit>
void forEachPixel(const PoiWorkingForm& form, Visit visit) {
    std::size_t i = 0;
    for (int y = 0; y < form.Hauteur; ++y) {
        for (int x = 0; x < form.Largeur; ++x) {
            visit(x, y, i++);
        }
    }
}

void loadPalette(PoiWorkingForm& form, const ImagePOI& source, const Traduction& traduction) {
    form.AlphaPalette.clear();
    const std::size_t count = source.NbCouleurs;
    for (std::size_t i = 0; i < kTransparentSlot; ++i) {
        PaletteSlot& slot = form.lblpalette[i];
        if (i >= count) {
            slot = {form.background, false, false, {}};
            continue;
        }
        const AlphaColour colour = paletteColour(source, i);
        slot = {colour.colour, true, true, colourText(colour.colour)};
        if (source.ColorMode == kModeAlpha) {
            form.AlphaPalette.push_back(colour.alpha);
            slot.tip = alphaTip(colour.alpha, traduction);
        }
    }
}

void loadIndices(PoiWorkingForm& form, const ImagePOI& source, int bits) {
    const auto rowBytes = static_cast<std::size_t>(GetRoundedWidth(bits, form.Largeur) * bits / 8);
    std::vector<std::uint8_t> values(static_cast<std::size_t>(form.Largeur));
    ByteView rest = source.Bitmap;
    for (int y = 0; y < form.Hauteur; ++y) {
        const ByteView row = rest.first(std::min(rowBytes, rest.size()));
        rest = rest.subspan(row.size());
        unpackRow(row, bits, values);
        for (int x = 0; x < form.Largeur; ++x) {
            const std::uint8_t value = values[static_cast<std::size_t>(x)];
            const bool transparent = value == source.NbCouleurs || value == kTransparentPixel;
            form.Pixels(x, y) = transparent ? kTransparentPixel : value;
            form.image.setPixel(x, y,
                                transparent ? form.background : form.lblpalette[value].colour);
        }
    }
}

void loadTrueColours(PoiWorkingForm& form, const ImagePOI& source) {
    const std::size_t start = source.ColorMode == kModeOneTransparent ? 3 : 0;
    if (source.ColorMode == kModeOneTransparent) {
        form.CouleurTransparente = colourAt(source.Bitmap, 0);
    }
    forEachPixel(form, [&](int x, int y, std::size_t i) {
        AlphaColour pixel;
        if (source.ColorMode == kModeAlpha) {
            pixel = readAlphaItem(source.Bitmap, i);
            form.AlphaPixels(x, y) = pixel.alpha;
        } else {
            pixel.colour = colourAt(source.Bitmap, start + i * 3);
        }
        const bool transparent =
            source.ColorMode == kModeOneTransparent && pixel.colour == form.CouleurTransparente;
        form.Pixels(x, y) = transparent ? kTransparentPixel : std::uint8_t{0};
        form.image.setPixel(x, y, transparent ? form.background : pixel.colour);
    });
}

Bytes trueColourBytes(const PoiWorkingForm& form) {
    const auto count =
        static_cast<std::size_t>(form.Largeur) * static_cast<std::size_t>(form.Hauteur);
    if (form.ColorMode == kModeAlpha) {
        Bytes bytes(alphaStreamSize(count));
        forEachPixel(form, [&](int x, int y, std::size_t i) {
            writeAlphaItem(bytes, i, {form.image.pixel(x, y), form.AlphaPixels(x, y)});
        });
        return bytes;
    }
    const bool oneTransparent = form.ColorMode == kModeOneTransparent;
    const Couleur key = form.CouleurTransparente == -1 ? form.background : form.CouleurTransparente;
    const std::size_t start = oneTransparent ? 3 : 0;
    Bytes bytes(start + count * 3);
    if (oneTransparent) {
        putColour(bytes.data(), key);
    }
    forEachPixel(form, [&](int x, int y, std::size_t i) {
        const bool transparent = oneTransparent && form.Pixels(x, y) == kTransparentPixel;
        putColour(bytes.data() + start + i * 3, transparent ? key : form.image.pixel(x, y));
    });
    return bytes;
}

Bytes paletteBytes(const PoiWorkingForm& form) {
    const auto count = static_cast<std::size_t>(form.NbCouleurs);
    Bytes bytes(TaillePalette(form.NbCouleurs, form.ColorMode).value());
    for (std::size_t i = 0; i < count; ++i) {
        const Couleur colour = form.lblpalette[i].colour;
        if (form.ColorMode == kModeAlpha) {
            const std::uint8_t alpha = i < form.AlphaPalette.size() ? form.AlphaPalette[i] : 0;
            writeAlphaItem(bytes, i, {colour, alpha});
        } else {
            putColour(bytes.data() + i * 3, colour);
        }
    }
    return bytes;
}

void refuseTransparentPixels(int ColorMode, Dialogues& dialogues, const Traduction& traduction) {
    std::string message;
    if (ColorMode == kModeOpaque) {
        message = traduction.Trad("Editer",
                                  "Le bitmap ne peut pas être sauvegardé en colormode 00, car il "
                                  "contient des pixels transparents.",
                                  "msgBitmapErreur1") +
                  "\r\n" +
                  traduction.Trad("Editer",
                                  "Veuillez l'enregistrer en colormode 10 , ou bien supprimer les "
                                  "pixels transparents",
                                  "msgBitmapErreur2");
    } else {
        message = traduction.Trad("Editer",
                                  "Le bitmap ne peut pas être sauvegardé en colormode 32, car il "
                                  "contient des pixels transparents.",
                                  "msgBitmapErreur3") +
                  "\r\n" +
                  traduction.Trad("Editer",
                                  "Veuillez affecter une couleur à ces pixels puis enregistrer le "
                                  "bitmap en colormode 32,",
                                  "msgBitmapErreur4") +
                  "\r\n" +
                  traduction.Trad("Editer",
                                  "en leur attribuant un canal alpha égal à 15 pour rendre cette "
                                  "couleur transparente.",
                                  "msgBitmapErreur5");
    }
    dialogues.AfficheMessage(message, MessageStyle::ok, "");
}

}  // namespace

void PixelMatrix::widen(int width, int height) {
    if (width <= columns_ && height <= rows_) {
        return;
    }
    PixelMatrix wider;
    wider.columns_ = std::max(width, columns_);
    wider.rows_ = std::max(height, rows_);
    wider.values_.assign(
        static_cast<std::size_t>(wider.columns_) * static_cast<std::size_t>(wider.rows_),
        kTransparentPixel);
    for (int y = 0; y < rows_; ++y) {
        for (int x = 0; x < columns_; ++x) {
            wider(x, y) = (*this)(x, y);
        }
    }
    *this = std::move(wider);
}

void chargement_bitmap(PoiWorkingForm& form, const ImagePOI& source, int width, int height,
                       const Traduction& traduction) {
    const auto bits = NbBitsParPixel(source.ColorMode, source.NbCouleurs);
    if (!bits) {
        throw Failure(ErrorNumber::conversion,
                      "mode de couleur inconnu : " + std::to_string(source.ColorMode));
    }
    form.Largeur = width;
    form.Hauteur = height;
    form.NbCouleurs = source.NbCouleurs;
    form.ColorMode = source.ColorMode;
    form.Zoom = std::min(10, 240 / std::max({width, height, 1}));
    form.writeWithPalette = source.NbCouleurs == 0 && source.Retente == -1;
    form.CouleurTransparente = -1;
    form.Pixels = {};
    form.AlphaPixels = {};
    form.image = Image(width, height, form.background);
    ajuster_bitmap(form);
    // A picture without alpha is opaque, also once it is turned into one with alpha.
    forEachPixel(form, [&](int x, int y, std::size_t) { form.AlphaPixels(x, y) = 0; });

    loadPalette(form, source, traduction);
    if (hasPalette(form)) {
        loadIndices(form, source, *bits);
    } else {
        loadTrueColours(form, source);
    }
}

void ecriture_bitmap(const PoiWorkingForm& form, ImagePOI& target, bool& erreur,
                     Dialogues& dialogues, const Traduction& traduction) {
    erreur = false;
    ImagePOI encoded;
    encoded.NbCouleurs = static_cast<std::uint8_t>(form.NbCouleurs);
    encoded.ColorMode = static_cast<std::uint8_t>(form.ColorMode);
    // The mark goes with the bytes: without it they would be read as true colours.
    encoded.Retente = form.NbCouleurs == 0 && form.writeWithPalette ? -1 : 0;
    if (form.Largeur == 0 || form.Hauteur == 0) {
        // Neither palette nor pixels belong to a picture without size.
    } else if (!hasPalette(form)) {
        encoded.Bitmap = trueColourBytes(form);
    } else {
        encoded.Couleurs = paletteBytes(form);
        encoded.Bitmap.resize(TailleBitmap(encoded, form.Largeur, form.Hauteur).value());
        ecriture_octets_bitmap(form, encoded.Bitmap, erreur, dialogues, traduction);
    }
    if (!erreur) {
        target = std::move(encoded);
    }
}

void ecriture_octets_bitmap(const PoiWorkingForm& form, Bytes& octets, bool& erreur,
                            Dialogues& dialogues, const Traduction& traduction) {
    const int bits = NbBitsParPixel(form.ColorMode, form.NbCouleurs).value();
    const auto rowBytes = static_cast<std::size_t>(GetRoundedWidth(bits, form.Largeur) * bits / 8);
    assert(octets.size() == rowBytes * static_cast<std::size_t>(form.Hauteur));
    std::fill(octets.begin(), octets.end(), std::uint8_t{0});
    std::span<std::uint8_t> rest(octets);
    std::vector<std::uint8_t> values(static_cast<std::size_t>(form.Largeur));
    for (int y = 0; y < form.Hauteur; ++y) {
        for (int x = 0; x < form.Largeur; ++x) {
            std::uint8_t value = form.Pixels(x, y);
            if (value == kTransparentPixel) {
                if (form.ColorMode != kModeOneTransparent) {
                    erreur = true;
                    return refuseTransparentPixels(form.ColorMode, dialogues, traduction);
                }
                value = static_cast<std::uint8_t>(form.NbCouleurs);
            }
            values[static_cast<std::size_t>(x)] = value;
        }
        packRow(values, bits, rest.first(rowBytes));
        rest = rest.subspan(rowBytes);
    }
}

void ajuster_bitmap(PoiWorkingForm& form) {
    form.image.resize(form.Largeur, form.Hauteur, form.background);
    const auto clearOutside = [&form](PixelMatrix& matrix, std::uint8_t value) {
        matrix.widen(form.Largeur, form.Hauteur);
        for (int y = 0; y < matrix.rows(); ++y) {
            for (int x = y < form.Hauteur ? form.Largeur : 0; x < matrix.columns(); ++x) {
                matrix(x, y) = value;
            }
        }
    };
    clearOutside(form.Pixels, kTransparentPixel);
    // New pixels of a picture with alpha are opaque.
    clearOutside(form.AlphaPixels, 0);
}

std::uint8_t nightFlags(std::uint8_t Entete, const ImagePOI& day, const ImagePOI& night) {
    using point_bits::kOwnNightPixels;
    if ((Entete & point_bits::kNight) == 0) {
        return Entete;
    }
    const bool shared = day.NbCouleurs > 0 && night.NbCouleurs > 0 && day.Bitmap == night.Bitmap;
    return static_cast<std::uint8_t>(shared ? Entete & ~kOwnNightPixels : Entete | kOwnNightPixels);
}

Image dessine(const PoiWorkingForm& form) {
    const int factor = form.Zoom + 1;
    Image view(form.Largeur * factor, form.Hauteur * factor);
    view.stretch(form.image, {0, 0, form.Largeur, form.Hauteur},
                 {0, 0, view.width(), view.height()});
    return view;
}

std::string alphaTip(int alpha, const Traduction& traduction) {
    return traduction.Trad("Editer", "canal alpha", "tipCanalAlpha") + " = " +
           std::to_string(alpha) + "   " +
           traduction.Trad("Editer", "transparence", "tipTransparence") + ": " +
           std::to_string(alphaPercentage(alpha)) + '%';
}

}  // namespace quillmark
