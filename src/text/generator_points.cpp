// Sections of points, with their day and night pictures.
#include <algorithm>
#include <array>
#include <vector>

#include "bitmap/poi_coding.h"
#include "text/format.h"
#include "text/generator.h"
#include "text/generator_parts.h"

namespace quillmark {
namespace {

struct Picture {
    const ImagePOI& image;
    int width;
    int height;
    bool isDay;
};

void writeHeader(TextWriter& out, const Picture& picture, int colours, int charactersPerPixel) {
    out.raw(picture.isDay ? "DayXpm=\"" : "NightXpm=\"")
        .number(picture.width)
        .character(' ')
        .number(picture.height);
    out.character(' ').number(colours).character(' ').number(charactersPerPixel);
    out.raw("\"   Colormode=").number(picture.image.ColorMode).end();
}

void writeRuler(TextWriter& out, int width) {
    out.line(format::kRuler.substr(0, static_cast<std::size_t>(width) + 1));
}

void writeTrueColours(TextWriter& out, const Picture& picture) {
    const ImagePOI& image = picture.image;
    const auto pixels =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    if (image.ColorMode == 0x20) {
        for (std::size_t i = 0; i < pixels; ++i) {
            const AlphaColour pixel = readAlphaItem(image.Bitmap, i);
            out.character('"').colour(pixel.colour).raw("\"  alpha=").number(pixel.alpha).end();
        }
        return;
    }
    // In mode 0x10 the transparent colour stands before the pixels.
    const std::size_t items = pixels + (image.ColorMode == 0x10 ? 1 : 0);
    for (std::size_t i = 0; i < items; ++i) {
        out.character('"').storedColour(image.Bitmap, i).raw("\"").end();
    }
}

// The code of each pixel value; two characters a value when `two`.
std::array<std::array<char, 2>, 256> pixelCodes(int NbCouleurs, bool two) {
    std::array<std::array<char, 2>, 256> codes{};
    for (int i = 0; i < 256; ++i) {
        auto& code = codes[static_cast<std::size_t>(i)];
        if (i >= NbCouleurs) {
            code = {' ', ' '};  // transparent
        } else if (two) {
            code = {format::CaracteresPixel[static_cast<std::size_t>(i / 16)],
                    format::CaracteresPixel[static_cast<std::size_t>(i % 16)]};
        } else {
            code = {format::CaracteresPixel[static_cast<std::size_t>(i)], ' '};
        }
    }
    return codes;
}

void writePalette(TextWriter& out, const ImagePOI& image,
                  const std::array<std::array<char, 2>, 256>& codes, std::size_t codeLength,
                  bool transparent) {
    for (std::size_t i = 0; i < image.NbCouleurs; ++i) {
        const AlphaColour colour = paletteColour(image, i);
        out.character('"').raw({codes[i].data(), codeLength}).raw("\tc ").colour(colour.colour);
        out.character('"');
        if (image.ColorMode == 0x20) {
            out.raw("  alpha=").number(colour.alpha);
        }
        out.end();
    }
    if (transparent) {
        out.line("\"  \tc none\"");
    }
}

// The visible pixels, row after row. False when a value lies behind the palette and the
// transparent value: text has no code for it.
bool readPixels(const Picture& picture, std::vector<std::uint8_t>& values, bool& transparent) {
    const ImagePOI& image = picture.image;
    const std::optional<int> bits = NbBitsParPixel(image.ColorMode, image.NbCouleurs);
    if (!bits) {
        return false;
    }
    const auto width = static_cast<std::size_t>(picture.width);
    const auto rowBytes =
        static_cast<std::size_t>(GetRoundedWidth(*bits, picture.width) * *bits / 8);
    values.resize(width * static_cast<std::size_t>(picture.height));
    const ByteView bytes = image.Bitmap;
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
        const std::size_t start = std::min(y * rowBytes, bytes.size());
        unpackRow(bytes.subspan(start, std::min(rowBytes, bytes.size() - start)), *bits,
                  std::span(values).subspan(y * width, width));
    }
    const std::uint8_t highest = *std::max_element(values.begin(), values.end());
    transparent = std::find(values.begin(), values.end(), image.NbCouleurs) != values.end();
    if (highest > image.NbCouleurs) {
        transparent = true;
        return false;
    }
    return true;
}

bool modeKnown(const ImagePOI& image) {
    return image.ColorMode == 0 || image.ColorMode == 0x10 || image.ColorMode == 0x20;
}

// False when text can't hold the picture as it is. What it can't hold at all is left out: by day
// as an empty picture, by night without a word.
bool writePicture(TextWriter& out, const Picture& picture, const GeneratorContext& context) {
    const ImagePOI& image = picture.image;
    const bool empty = picture.width < 1 || picture.height == 0;
    // Without any pixel byte there is no picture, whatever its size says.
    if (empty || image.Retente != 0 || !modeKnown(image) || image.Bitmap.empty()) {
        if (empty || picture.isDay) {
            out.raw(picture.isDay ? "DayXpm" : "NightXpm").line("=\"0 0 0 0\"");
        }
        return empty;
    }
    if (image.NbCouleurs == 0) {
        writeHeader(out, picture, 0, 1);
        out.line(format::kTrueColourComment);
        if (context.settings.EcrireTrueColors) {
            writeTrueColours(out, picture);
            writeRuler(out, picture.width);
        }
        return true;
    }
    std::vector<std::uint8_t> values;
    bool transparent = false;
    const bool complete = readPixels(picture, values, transparent);
    const bool two = image.NbCouleurs > format::kOneCharacterColours;
    const std::size_t codeLength = two ? 2 : 1;
    const auto codes = pixelCodes(image.NbCouleurs, two);
    writeHeader(out, picture, image.NbCouleurs + (transparent ? 1 : 0), two ? 2 : 1);
    writePalette(out, image, codes, codeLength, transparent);

    const auto width = static_cast<std::size_t>(picture.width);
    std::string row(width * codeLength + 4, ' ');
    row.front() = '"';
    row[row.size() - 3] = '"';
    row[row.size() - 2] = '\r';
    row[row.size() - 1] = '\n';
    for (std::size_t start = 0; start < values.size(); start += width) {
        char* to = row.data() + 1;
        for (std::size_t x = 0; x < width; ++x) {
            const auto& code = codes[values[start + x]];
            *to++ = code[0];
            if (two) {
                *to++ = code[1];
            }
        }
        out.raw(row);
    }
    writeRuler(out, picture.width);
    return complete;
}

}  // namespace

void AffichePOI(const POI& poi, const GeneratorContext& context, int CodePage, std::string& text,
                Journal& journal) {
    TextWriter out(text);
    ObjectLines object{context, CodePage, out, journal, poi.Type, poi.SubType};

    out.line(format::kPoint);
    if (context.settings.FormatPOI) {
        out.raw("Type=0x").line(poi.Type);
        out.raw("SubType=0x").line(poi.SubType);
    } else {
        out.raw("Type=0x").raw(poi.Type).line(poi.SubType);
    }
    writeDescription(object, "POI");
    writeComment(object, poi.Comment);
    if ((poi.Entete & point_bits::kStrings) != 0) {
        writeStrings(object, poi.Strings, [](const GeneratorContext& c) {
            return translate(c, "Main", "Problème de lecture des strings du POI",
                             "msgProblemeStringPOI");
        });
    }
    writeCustomName(object, poi.CustomMPCName);
    lecture_ExtendedLabels(object, (poi.Entete & point_bits::kExtendedLabels) != 0,
                           poi.ExtendedLabels);
    bool complete = writePicture(out, {poi.Image[0], poi.Largeur, poi.Hauteur, true}, context);
    if ((poi.Entete & point_bits::kNight) != 0) {
        complete =
            writePicture(out, {poi.Image[1], poi.Largeur, poi.Hauteur, false}, context) && complete;
    }
    out.line(format::kObjectEnd);
    if (!complete) {
        const std::string place = " Type=0x" + poi.Type + "   SubType=0x" + poi.SubType;
        journal.error(translate(context, "Main",
                                "Le texte ne peut pas contenir cette image telle quelle, POI",
                                "msgImageSansTexte") +
                          place,
                      place);
    }
}

}  // namespace quillmark
