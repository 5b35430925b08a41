// Sections of points and their pictures.
#include <algorithm>
#include <array>
#include <unordered_map>

#include "bitmap/poi_coding.h"
#include "text/format.h"
#include "text/parser_sections.h"

namespace quillmark {
namespace {

constexpr int kNoPixel = -1;
constexpr int kMaxColours = 255;

// Which pixel value a code stands for.
class CodeTable {
  public:
    explicit CodeTable(std::size_t charactersPerPixel) : charactersPerPixel_(charactersPerPixel) {
        single_.fill(kNoPixel);
    }

    // The first line with a code counts.
    void add(std::string_view code, int value) {
        const bool isByte = code.size() == 1;
        if (isByte && single_[index(code[0])] == kNoPixel) {
            single_[index(code[0])] = value;
        }
        ascii_ = ascii_ && std::none_of(code.begin(), code.end(), [](char c) { return c < 0; });
        if (charactersPerPixel_ > 1 || !isByte) {
            all_.emplace(code, value);
        }
    }

    // Pixel values of a row; `kNoPixel` for unknown codes.
    void values(std::string_view row, std::vector<int>& values) const {
        values.clear();
        const bool ascii =
            ascii_ && std::none_of(row.begin(), row.end(), [](char c) { return c < 0; });
        if (ascii && charactersPerPixel_ == 1) {
            for (const char c : row) {
                values.push_back(single_[index(c)]);
            }
            return;
        }
        if (ascii) {
            for (std::size_t i = 0; i < row.size(); i += charactersPerPixel_) {
                values.push_back(find(row.substr(i, charactersPerPixel_)));
            }
            return;
        }
        for (const std::string_view code : splitCodes(row, charactersPerPixel_)) {
            const bool single = charactersPerPixel_ == 1 && code.size() == 1;
            values.push_back(single ? single_[index(code[0])] : find(code));
        }
    }

  private:
    static std::size_t index(char c) { return static_cast<std::uint8_t>(c); }

    int find(std::string_view code) const {
        const auto found = all_.find(code);
        return found == all_.end() ? kNoPixel : found->second;
    }

    std::size_t charactersPerPixel_;
    bool ascii_ = true;
    std::array<int, 256> single_{};
    std::unordered_map<std::string_view, int> all_;
};

struct Palette {
    std::vector<AlphaColour> colours;
    CodeTable codes;
};

// "alpha=" in decimal, 0 to 15; opaque when it is missing or can't be read.
std::uint8_t parseAlpha(ParserContext& context, std::string_view text) {
    if (text.empty()) {
        return 0;
    }
    const auto value = parseDecimal(trimBlanks(text));
    if (!value || *value < 0 || *value > 15) {
        context.tell(Fault::value);
        return 0;
    }
    return static_cast<std::uint8_t>(*value);
}

Couleur colourOf(const std::array<std::uint8_t, 3>& stored) {
    return couleurFromRgb(stored[2], stored[1], stored[0]);
}

// Reads as many palette lines as the header names; false when the section ended among them.
bool parsePalette(ParserContext& context, int lines, std::size_t charactersPerPixel, int ColorMode,
                  Palette& palette) {
    std::vector<std::string_view> transparent;
    for (int i = 0; i < lines; ++i) {
        if (!atBlockLine(context)) {
            return false;
        }
        if (context.source.line().front() != '"') {
            context.tell(Fault::unexpectedEnd);
            break;
        }
        const PaletteLine line = parsePaletteLine(context.source.line(), charactersPerPixel);
        if (!line.valid) {
            context.tell(Fault::value);
        }
        const bool full = palette.colours.size() >= kMaxColours;
        if (line.none) {
            transparent.push_back(line.code);
        } else if (full) {
            context.tell(Fault::surplusColours);
        } else {
            palette.codes.add(line.code, static_cast<int>(palette.colours.size()));
            const std::uint8_t alpha =
                ColorMode == 0x20 ? parseAlpha(context, line.alpha) : std::uint8_t{0};
            palette.colours.push_back({colourOf(line.stored), alpha});
        }
        context.source.next();
    }
    if (palette.colours.empty() && !transparent.empty()) {
        // Without any colour the picture would read as one in true colours: it gets one that no
        // pixel uses.
        palette.colours.push_back({});
    }
    for (const std::string_view code : transparent) {
        palette.codes.add(code, static_cast<int>(palette.colours.size()));
    }
    return true;
}

void storePalette(const std::vector<AlphaColour>& colours, ImagePOI& image) {
    image.NbCouleurs = static_cast<std::uint8_t>(colours.size());
    image.Couleurs.assign(TaillePalette(image.NbCouleurs, image.ColorMode).value_or(0), 0);
    for (std::size_t i = 0; i < colours.size(); ++i) {
        if (image.ColorMode == 0x20) {
            writeAlphaItem(image.Couleurs, i, colours[i]);
        } else {
            image.Couleurs[i * 3] = blueOf(colours[i].colour);
            image.Couleurs[i * 3 + 1] = greenOf(colours[i].colour);
            image.Couleurs[i * 3 + 2] = redOf(colours[i].colour);
        }
    }
}

// A pixel that text doesn't give: transparent where the mode has that, else the first colour.
std::uint8_t missingPixel(const ImagePOI& image) {
    return image.ColorMode == 0x10 ? image.NbCouleurs : std::uint8_t{0};
}

// False when rows are missing.
bool parseIndexedRows(ParserContext& context, const Palette& palette, bool ended,
                      ParsedPicture& picture) {
    ImagePOI& image = picture.image;
    const int bits = NbBitsParPixel(image.ColorMode, image.NbCouleurs).value_or(8);
    const auto rowBytes = static_cast<std::size_t>(GetRoundedWidth(bits, picture.width) * bits / 8);
    const auto width = static_cast<std::size_t>(picture.width);
    image.Bitmap.assign(rowBytes * static_cast<std::size_t>(picture.height), 0);
    std::vector<int> values;
    std::vector<std::uint8_t> pixels(width);
    for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
        std::fill(pixels.begin(), pixels.end(), missingPixel(image));
        ended = ended || !atBlockLine(context);
        if (!ended && context.source.line().front() != '"') {
            context.tell(Fault::shortRow);
            ended = true;
        }
        if (!ended) {
            palette.codes.values(quoted(context.source.line()), values);
            bool unknown = false;
            for (std::size_t x = 0; x < std::min(width, values.size()); ++x) {
                unknown = unknown || values[x] == kNoPixel;
                if (values[x] != kNoPixel) {
                    pixels[x] = static_cast<std::uint8_t>(values[x]);
                }
            }
            if (values.size() != width) {
                context.tell(values.size() < width ? Fault::shortRow : Fault::longRow);
            }
            if (unknown) {
                context.tell(Fault::unknownCode);
            }
            context.source.next();
        }
        packRow(pixels, bits, std::span(image.Bitmap).subspan(y * rowBytes, rowBytes));
    }
    if (!ended) {
        skipSurplusRows(context);
    }
    return !ended;
}

// A pixel line of a picture without palette: "#RRGGBB", with an alpha in mode 0x20.
AlphaColour parsePixelLine(ParserContext& context, int ColorMode) {
    const std::string_view line = context.source.line();
    std::array<std::uint8_t, 3> stored{};
    const bool complete =
        line.size() >= 9 && line[1] == '#' && parseColour(line.substr(2, 6), stored);
    if (!complete) {
        context.tell(Fault::value);
    }
    AlphaColour pixel{colourOf(stored), 0};
    if (ColorMode == 0x20) {
        const std::size_t separator = line.find('=');
        if (separator == std::string_view::npos) {
            context.tell(Fault::value);
        } else {
            pixel.alpha = parseAlpha(context, line.substr(separator + 1));
        }
    }
    return pixel;
}

// False when pixels are missing.
bool parseTrueColours(ParserContext& context, ParsedPicture& picture) {
    ImagePOI& image = picture.image;
    image.Bitmap.assign(TailleBitmap(image, picture.width, picture.height).value_or(0), 0);
    const auto pixels =
        static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    // In mode 0x10 the transparent colour comes first.
    const std::size_t items = pixels + (image.ColorMode == 0x10 ? 1 : 0);
    for (std::size_t i = 0; i < items; ++i) {
        if (!atBlockLine(context)) {
            return false;
        }
        if (context.source.line().front() != '"') {
            context.tell(Fault::shortRow);
            return false;
        }
        const AlphaColour pixel = parsePixelLine(context, image.ColorMode);
        if (image.ColorMode == 0x20) {
            writeAlphaItem(image.Bitmap, i, pixel);
        } else {
            image.Bitmap[i * 3] = blueOf(pixel.colour);
            image.Bitmap[i * 3 + 1] = greenOf(pixel.colour);
            image.Bitmap[i * 3 + 2] = redOf(pixel.colour);
        }
        context.source.next();
    }
    skipSurplusRows(context);
    return true;
}

// The colour mode behind a header; 16 when nothing or nothing usable stands there.
std::uint8_t parseColorMode(ParserContext& context, std::string_view behind) {
    constexpr std::uint8_t kDefault = 0x10;
    if (trimBlanks(behind).empty()) {
        return kDefault;
    }
    const std::size_t separator = behind.find('=');
    const auto mode = separator == std::string_view::npos
                          ? std::nullopt
                          : parseDecimal(trimBlanks(behind.substr(separator + 1)));
    if (!mode || (*mode != 0 && *mode != 0x10 && *mode != 0x20)) {
        context.tell(Fault::value);
        return kDefault;
    }
    return static_cast<std::uint8_t>(*mode);
}

// A transparent picture of a size: stands in where text gives only the night picture.
ImagePOI transparentPicture(int width, int height) {
    ImagePOI image;
    image.ColorMode = 0x10;
    storePalette({{}}, image);
    const int bits = *NbBitsParPixel(image.ColorMode, image.NbCouleurs);
    const std::vector<std::uint8_t> pixels(static_cast<std::size_t>(width), image.NbCouleurs);
    const auto rowBytes = static_cast<std::size_t>(GetRoundedWidth(bits, width) * bits / 8);
    image.Bitmap.assign(rowBytes * static_cast<std::size_t>(height), 0);
    for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
        packRow(pixels, bits, std::span(image.Bitmap).subspan(y * rowBytes, rowBytes));
    }
    return image;
}

// Puts the pictures into the record. Both share one size: the day's, unless it is empty.
void finishPictures(ParserContext& context, POI& poi, ParsedPicture& day, ParsedPicture& night) {
    const auto isEmpty = [](const ParsedPicture& picture) {
        return picture.width == 0 || picture.height == 0;
    };
    if (night.given && isEmpty(day) && !isEmpty(night)) {
        context.tell(Fault::pictureSize, night.line);
        day.width = night.width;
        day.height = night.height;
        day.image = transparentPicture(day.width, day.height);
    }
    const bool fits = day.width == night.width && day.height == night.height;
    if (night.given && !fits) {
        context.tell(Fault::pictureSize, night.line);
    }
    poi.Largeur = static_cast<std::uint8_t>(day.width);
    poi.Hauteur = static_cast<std::uint8_t>(day.height);
    poi.Image[0] = std::move(day.image);
    if (night.given && fits) {
        poi.Entete |= point_bits::kNight;
        poi.Image[1] = std::move(night.image);
    }
}

std::int32_t lengthOf(const POI& poi) {
    std::size_t length = 5 + poi.Image[0].Couleurs.size() + poi.Image[0].Bitmap.size();
    if ((poi.Entete & point_bits::kNight) != 0) {
        length += 2 + poi.Image[1].Couleurs.size() + poi.Image[1].Bitmap.size();
    }
    return static_cast<std::int32_t>(length + poi.Strings.size() + poi.ExtendedLabels.size());
}

// Palette and pixels behind a header; false when some are missing.
bool parsePixels(ParserContext& context, int colours, int charactersPerPixel,
                 ParsedPicture& picture) {
    if (colours < 1) {
        return parseTrueColours(context, picture);
    }
    const auto codeLength = static_cast<std::size_t>(std::clamp(charactersPerPixel, 1, 8));
    Palette palette{{}, CodeTable(codeLength)};
    const bool whole = parsePalette(context, colours, codeLength, picture.image.ColorMode, palette);
    if (palette.colours.empty()) {
        palette.colours.push_back({});
    }
    storePalette(palette.colours, picture.image);
    return parseIndexedRows(context, palette, !whole, picture);
}

}  // namespace

ParsedPicture parsePicture(ParserContext& context) {
    ParsedPicture picture;
    const XpmHeader header = parseXpmHeader(context.source.line());
    const auto [width, height, colours, charactersPerPixel] = header.fields;
    if (!header.valid || width > 255 || height > 255) {
        context.tell(Fault::value);
        context.source.next();
        return picture;
    }
    picture.given = true;
    picture.line = context.source.index();
    if (width == 0 || height == 0) {
        context.source.next();
        return picture;
    }
    picture.width = width;
    picture.height = height;
    picture.image.ColorMode = parseColorMode(context, header.behind);
    // Pixels that are there take more room in text than in a record; those that a header only
    // promises are paid from a budget, so that a short text can't ask for much memory.
    const auto room =
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * (colours < 1 ? 4 : 1);
    if (room > context.pixelBudget) {
        context.tell(Fault::unexpectedEnd);
        context.source.next();
        return {};
    }
    context.source.next();
    if (!parsePixels(context, colours, charactersPerPixel, picture)) {
        context.pixelBudget -= room;
    }
    return picture;
}

POI parsePoint(ParserContext& context) {
    POI poi;
    poi.Entete =
        point_bits::kOwnNightPixels;  // a night picture of text always has pixels of its own
    ParsedPicture day;
    ParsedPicture night;
    const std::size_t firstLine = context.source.index() - 1;
    runSection(context, [&](std::string_view line) {
        if (beginsWith(line, "xpm=") || beginsWith(line, "dayxpm=")) {
            day = parsePicture(context);
        } else if (beginsWith(line, "nightxpm=")) {
            night = parsePicture(context);
        } else if (beginsWith(line, "extendedlabels=y")) {
            poi.Entete |= point_bits::kExtendedLabels;
            poi.ExtendedLabels = parseExtendedLabels(context);
        } else if (beginsWith(line, "extendedlabels=")) {
            context.source.next();
        } else {
            return handleCommonKey(context, line, poi, poi.Entete, point_bits::kStrings);
        }
        return true;
    });
    finishPictures(context, poi, day, night);
    poi.Longueur = lengthOf(poi);
    finishType(context, firstLine, poi);
    leaveSection(context);
    return poi;
}

}  // namespace quillmark
