#include "bench/large_document.h"

#include <random>
#include <string>

#include "bitmap/poi_coding.h"
#include "core/draw_order.h"
#include "text/labels.h"

namespace quillmark::bench {
namespace {

class Builder {
  public:
    Document build(int objects) {
        for (int i = 0; i < objects; ++i) {
            document_.Polygone.push_back(polygon(i));
            document_.Polyline.push_back(line(i));
            document_.POI.push_back(point(i));
            const int type = typeValue(document_.Polygone.back().Type);
            // A standard type has one entry whatever its subtypes.
            if (type >= 0x100 || i % 32 == 0) {
                document_.ListDraworder.push_back(
                    drawOrderEntry({1 + i % 8, type, type >= 0x100 ? i % 32 : 0}));
            }
        }
        RebatirDraworder(document_);
        document_.FID = "1";
        document_.ProductCode = "1";
        return std::move(document_);
    }

  private:
    Bytes noise(std::size_t size) {
        Bytes bytes(size);
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(random_());
        }
        return bytes;
    }
    static Bytes names(int i) {
        const std::string number = std::to_string(i);
        return encodeStrings({{0x01, "Sentier balisé " + number},
                              {0x02, "Markierter Weg " + number},
                              {0x04, "Marked trail " + number}},
                             1252)
            .Strings;
    }
    static void identify(auto& record, int i) {
        setIdentity(record.Type, record.SubType, static_cast<std::uint16_t>(i));
    }

    Polygone polygon(int i) {
        Polygone polygon;
        identify(polygon, i);
        const bool patterned = i % 2 == 0;
        polygon.Entete = patterned ? 0x19 : 0x17;
        polygon.Couleurs = noise(patterned ? 12 : 6);
        if (patterned) {
            // Rows repeat, as people draw them.
            const Bytes tile = noise(16);
            for (std::size_t at = 0; at < polygon.Bitmap.size(); ++at) {
                polygon.Bitmap[at] = tile[at % tile.size()];
            }
        }
        polygon.Strings = names(i);
        return polygon;
    }
    Polyline line(int i) {
        Polyline line;
        identify(line, i);
        const int rows = i % 3 == 0 ? 0 : 3 + i % 6;
        line.Entete = static_cast<std::uint8_t>(rows * 8 + 1);
        line.Entete2 = 0x03;
        line.Couleurs = noise(12);
        line.Bitmap = rows == 0 ? Bytes{3, 5} : noise(static_cast<std::size_t>(rows) * 4);
        line.Strings = names(i);
        return line;
    }
    POI point(int i) {
        POI point;
        identify(point, i);
        point.Entete = 0x04;
        point.Largeur = point.Hauteur = static_cast<std::uint8_t>(12 + i % 9);
        ImagePOI& image = point.Image[0];
        image.ColorMode = i % 8 == 1 ? kModeAlpha : i % 2 == 0 ? kModeOneTransparent : kModeOpaque;
        image.NbCouleurs = static_cast<std::uint8_t>(i % 16 == 1 ? 0 : 4 + i % 11);
        image.Couleurs = noise(TaillePalette(image.NbCouleurs, image.ColorMode).value());
        image.Bitmap = noise(TailleBitmap(image, point.Largeur, point.Hauteur).value());
        if (image.NbCouleurs > 0) {
            // Only colours that the palette has; two pixels share a byte.
            for (std::uint8_t& byte : image.Bitmap) {
                byte &= image.NbCouleurs < 8 ? 0x33 : 0x77;
            }
        }
        point.Strings = names(i);
        return point;
    }

    std::mt19937 random_{4711};
    Document document_;
};

}  // namespace

Document largeDocument(int objects) {
    return Builder().build(objects);
}

}  // namespace quillmark::bench
