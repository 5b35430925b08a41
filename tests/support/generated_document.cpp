#include "support/generated_document.h"

#include <algorithm>
#include <random>

#include "bitmap/poi_coding.h"
#include "core/draw_order.h"

namespace quillmark::testing {
namespace {

class Generator {
  public:
    explicit Generator(std::uint32_t seed) : random_(seed) {}

    // 0 to `bound` - 1; the same on every platform.
    std::uint32_t below(std::uint32_t bound) {
        return static_cast<std::uint32_t>(random_() % bound);
    }
    bool oneIn(std::uint32_t n) { return below(n) == 0; }
    template <typename T, std::size_t N>
    T pick(const std::array<T, N>& values) {
        return values[below(N)];
    }
    Bytes bytes(std::size_t size) {
        Bytes result(size);
        std::generate(result.begin(), result.end(),
                      [this] { return static_cast<std::uint8_t>(random_()); });
        return result;
    }

    Bytes strings() {
        Bytes entries;
        const std::uint32_t labels = 1 + below(3);
        for (std::uint32_t i = 0; i < labels; ++i) {
            entries.push_back(static_cast<std::uint8_t>(below(55)));
            for (std::uint32_t n = below(oneIn(4) ? 90 : 20); n > 0; --n) {
                entries.push_back(static_cast<std::uint8_t>('a' + below(26)));
            }
            entries.push_back(0);
        }
        ByteWriter block;
        const auto size = static_cast<std::uint32_t>(entries.size());
        if (size < 128 && !oneIn(3)) {
            block.u8(static_cast<std::uint8_t>(size * 2 + 1));
        } else {
            block.u16(size * 4 + 2);
        }
        block.bytes(entries);
        return block.release();
    }

    Bytes extendedLabels() {
        const auto flags = static_cast<std::uint8_t>(below(128));
        const unsigned custom = flags >> 3U & 3U;
        Bytes block{flags};
        const Bytes colours = bytes(custom == 0 ? 0 : custom == 3 ? 6 : 3);
        block.insert(block.end(), colours.begin(), colours.end());
        if ((flags & 0x60U) != 0) {
            const auto length = static_cast<std::uint8_t>(below(12) * 2 + below(2));
            const Bytes contour = bytes(length / 2U);
            block.push_back(length);
            block.insert(block.end(), contour.begin(), contour.end());
        }
        return block;
    }

    ImagePOI picture(const POI& poi) {
        constexpr std::array<std::uint8_t, 3> modes{0x00, 0x10, 0x20};
        constexpr std::array<std::uint8_t, 10> counts{0, 1, 2, 3, 4, 14, 15, 16, 254, 255};
        ImagePOI image;
        image.NbCouleurs = pick(counts);
        image.ColorMode = pick(modes);
        if (poi.Largeur > 0 && poi.Hauteur > 0) {
            image.Couleurs = bytes(*TaillePalette(image.NbCouleurs, image.ColorMode));
            image.Bitmap = bytes(*TailleBitmap(image, poi.Largeur, poi.Hauteur));
        }
        return image;
    }

    Polygone polygon(int identity) {
        constexpr std::array<std::uint8_t, 12> layouts{6, 7, 8, 9, 11, 13, 14, 15, 0, 1, 3, 5};
        Polygone polygon;
        setIdentity(polygon.Type, polygon.SubType, static_cast<std::uint16_t>(identity));
        polygon.Entete = static_cast<std::uint8_t>(pick(layouts) | below(8) << 4U);
        polygon.Couleurs = bytes(static_cast<std::size_t>(NombreCouleurs(polygon.Entete)) * 3);
        if ((polygon.Entete & 0x08U) != 0) {
            const Bytes pattern = bytes(kPolygonBitmapSize);
            std::copy(pattern.begin(), pattern.end(), polygon.Bitmap.begin());
        }
        polygon.Strings = (polygon.Entete & 0x10U) != 0 ? strings() : Bytes{};
        polygon.ExtendedLabels = (polygon.Entete & 0x20U) != 0 ? extendedLabels() : Bytes{};
        polygon.Alpha =
            (polygon.Entete & 0x40U) != 0 ? bytes(polygon.Couleurs.size() / 3) : Bytes{};
        return polygon;
    }

    Polyline polyline(int identity) {
        constexpr std::array<std::uint8_t, 6> layouts{0, 1, 3, 5, 6, 7};
        Polyline line;
        setIdentity(line.Type, line.SubType, static_cast<std::uint16_t>(identity));
        const std::uint32_t rows = oneIn(2) ? 0 : 1 + below(31);
        line.Entete = static_cast<std::uint8_t>(pick(layouts) | rows << 3U);
        line.Entete2 = static_cast<std::uint8_t>(below(8));
        line.Couleurs = bytes(static_cast<std::size_t>(NombreCouleurs(line.Entete)) * 3);
        line.Bitmap = bytes(rows > 0 ? rows * 4 : (line.Entete & 2U) != 0 ? 1 : 2);
        line.Strings = (line.Entete2 & 1U) != 0 ? strings() : Bytes{};
        line.ExtendedLabels = (line.Entete2 & 4U) != 0 ? extendedLabels() : Bytes{};
        return line;
    }

    POI poi() {
        constexpr std::array<std::uint8_t, 12> widths{1, 4, 7, 8, 9, 15, 16, 17, 24, 31, 32, 33};
        POI poi;
        poi.Entete = static_cast<std::uint8_t>(below(16));
        poi.Largeur = oneIn(12) ? 0 : pick(widths);
        poi.Hauteur = static_cast<std::uint8_t>(1 + below(12));
        poi.Image[0] = picture(poi);
        if ((poi.Entete & 2U) != 0) {
            poi.Image[1] = picture(poi);
            if (poi.Image[1].NbCouleurs > 0 && (poi.Entete & 1U) == 0) {
                poi.Image[1].Bitmap = poi.Image[0].Bitmap;
            }
        }
        poi.Strings = (poi.Entete & 4U) != 0 ? strings() : Bytes{};
        poi.ExtendedLabels = (poi.Entete & 8U) != 0 ? extendedLabels() : Bytes{};
        return poi;
    }

    // `count` identities, ascending, some of them twice, all below 0x8000.
    std::vector<int> identities(int count) {
        std::vector<int> result;
        const int step = std::max(1, 0x7000 / std::max(1, count));
        int identity = 0;
        for (int i = 0; i < count; ++i) {
            result.push_back(identity);
            identity += step > 1 && oneIn(10) ? 0 : step;
        }
        return result;
    }

  private:
    std::mt19937 random_;
};

void addActiveRouting(Generator& random, int count, std::vector<Polyline>& polylines) {
    std::vector<Polyline> lines;
    for (int i = 0; i < count; ++i) {
        Polyline line = random.polyline(0x10a0 + i % 3);
        line.ActiveRouting = {static_cast<std::uint8_t>(4 + i % 2),
                              static_cast<std::uint8_t>(i / 2 % 3)};
        lines.push_back(std::move(line));
    }
    std::stable_sort(lines.begin(), lines.end(), [](const Polyline& a, const Polyline& b) {
        return std::pair(a.ActiveRouting, a.SubType) < std::pair(b.ActiveRouting, b.SubType);
    });
    polylines.insert(polylines.end(), lines.begin(), lines.end());
}

void addExtraPoi(Generator& random, const GeneratedShape& shape, Document& document) {
    const std::uint64_t end = std::uint64_t{1} << (8 * shape.brandWidth);
    for (int i = 0; i < shape.extraPoiGroups; ++i) {
        ExtraPOI group;
        group.BrandID =
            static_cast<std::int32_t>(end - 1 - static_cast<std::uint64_t>(i) * (end / 16));
        group.POI.resize(i == 2 ? 0 : 1 + random.below(3));
        for (POI& member : group.POI) {
            member = random.poi();
            document.MaxDimensionExtraPOI =
                std::max({document.MaxDimensionExtraPOI, std::int16_t{member.Largeur},
                          std::int16_t{member.Hauteur}});
        }
        group.NbPOI = static_cast<std::uint8_t>(group.POI.size());
        document.ExtraPOI.push_back(std::move(group));
    }
    std::sort(document.ExtraPOI.begin(), document.ExtraPOI.end(),
              [](const ExtraPOI& a, const ExtraPOI& b) { return a.BrandID < b.BrandID; });
    document.EnteteExtraPOI.flags = static_cast<std::uint8_t>((shape.brandWidth - 1) * 8 | 0x80);
}

void addLabels(Generator& random, Document& document) {
    document.EnteteLabels.unknown1 = {1, 2};
    document.EnteteLabels.unknown2 = {3, 4, 5, 6, 7, 8, 9, 10};
    document.EnteteLabels.unknown3 = {11, 12, 13, 14};
    document.EnteteLabels.entrySizeA = 27;
    document.EnteteLabels.entrySizeB = 4;
    for (int i = 0; i < 3; ++i) {
        const Bytes text = random.strings();
        document.LabelsStrings.insert(document.LabelsStrings.end(), text.begin() + 2, text.end());
    }
    document.LabelsTableA = random.bytes(27 * 3);
    document.LabelsTableB = random.bytes(4 * 3);
}

void addBloc(Generator& random, BlocSourceKind source, Document& document) {
    document.BlocSource = source;
    document.BlocBrut = source == BlocSourceKind::tableA   ? document.LabelsTableA
                        : source == BlocSourceKind::tableB ? document.LabelsTableB
                                                           : random.bytes(33);
}

// Standard and extended types in turn, on three levels, several subtypes of one type on a level.
void addDrawOrder(int count, Document& document) {
    for (int i = 0; i < count; ++i) {
        const int level = 1 + i % 3;
        document.ListDraworder.push_back(
            drawOrderEntry(i % 2 == 0 ? DrawOrderItem{level, 1 + i / 2 % 0x7F, 0}
                                      : DrawOrderItem{level, 0x100 + i % 5, i / 5 % 32}));
    }
    RebatirDraworder(document);
    const auto firstOfEqual = std::unique(document.DrawOrder.begin(), document.DrawOrder.end());
    document.DrawOrder.erase(firstOfEqual, document.DrawOrder.end());
    document.ListDraworder.erase(
        std::unique(document.ListDraworder.begin(), document.ListDraworder.end()),
        document.ListDraworder.end());
}

}  // namespace

Document generatedDocument(std::uint32_t seed, const GeneratedShape& shape) {
    Generator random(seed);
    Document document;
    document.TailleEntete = shape.headerSize;
    document.FID = std::to_string(random.below(0x10000));
    document.ProductCode = std::to_string(random.below(0x10000));
    document.CodePage = kCodePages[seed % kCodePages.size()];
    for (const int identity : random.identities(shape.polygons)) {
        document.Polygone.push_back(random.polygon(identity));
    }
    addDrawOrder(shape.polygons, document);
    for (const int identity : random.identities(shape.polylines)) {
        document.Polyline.push_back(random.polyline(identity));
    }
    for (const int identity : random.identities(shape.pois)) {
        POI poi = random.poi();
        setIdentity(poi.Type, poi.SubType, static_cast<std::uint16_t>(identity));
        document.MaxDimensionPOI = std::max(
            {document.MaxDimensionPOI, std::int16_t{poi.Largeur}, std::int16_t{poi.Hauteur}});
        document.POI.push_back(std::move(poi));
    }
    document.EntreSections = random.bytes(shape.betweenSections);
    if (shape.headerSize >= 110) {
        addExtraPoi(random, shape, document);
    }
    if (shape.headerSize >= 156) {
        addLabels(random, document);
    }
    if (shape.headerSize >= 164) {
        addBloc(random, shape.blocSource, document);
    }
    if (shape.headerSize >= 174) {
        addActiveRouting(random, shape.activeRoutingLines, document.Polyline);
        document.EnteteInconnu = random.bytes(static_cast<std::size_t>(shape.headerSize - 174));
    }
    return document;
}

}  // namespace quillmark::testing
