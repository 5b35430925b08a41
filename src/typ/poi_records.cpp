#include "typ/poi_records.h"

#include <algorithm>

#include "bitmap/poi_coding.h"
#include "typ/strings_block.h"

namespace quillmark {
namespace {

using point_bits::kExtendedLabels;
using point_bits::kNight;
using point_bits::kOwnNightPixels;
using point_bits::kStrings;

constexpr std::size_t kHeadSize = 5;  // up to the day picture's colour mode
constexpr std::size_t kPairSize = 2;  // NbCouleurs and ColorMode of the night picture

bool hasSize(const POI& poi) {
    return poi.Largeur > 0 && poi.Hauteur > 0;
}

bool modeKnown(const ImagePOI& image) {
    return TaillePalette(0, image.ColorMode).has_value();
}

bool nightHasPixels(const POI& poi) {
    return poi.Image[1].NbCouleurs == 0 || (poi.Entete & kOwnNightPixels) != 0;
}

// True when the rest of the record lies in the picture's `Bitmap`.
bool holdsRest(const POI& poi, const ImagePOI& image) {
    return hasSize(poi) && !modeKnown(image) && (image.NbCouleurs > 0 || !image.Bitmap.empty());
}

// Without palette an unknown mode can also mean that there are no pixels at all.
enum class UnknownMode : std::uint8_t { noPixels, rest };

struct Attempt {
    std::int16_t Retente = 0;  // of the day picture
    UnknownMode unknownMode = UnknownMode::noPixels;
    // Some write the palette of a picture that has no size.
    bool paletteWithoutSize = false;
};

// One way of reading a record. It is consistent in itself whatever the data are: written, it reads
// the same.
struct Reading {
    PartReader parts;
    std::size_t end;  // of the record, as far as its room says
    Attempt attempt;
    POI& poi;

    // False when nothing can be read behind this picture.
    bool picture(ImagePOI& image, bool hasPixels) {
        if (!hasSize(poi)) {
            if (attempt.paletteWithoutSize && modeKnown(image)) {
                image.Couleurs =
                    parts.bytes(TaillePalette(image.NbCouleurs, image.ColorMode).value_or(0));
            }
            return true;
        }
        if (!modeKnown(image) &&
            (image.NbCouleurs > 0 || attempt.unknownMode == UnknownMode::rest)) {
            parts.fail(Failure(ErrorNumber::other,
                               "mode de couleurs inconnu : 0x" + hexTextUpper(image.ColorMode, 2)));
            const std::size_t rest = end - std::min(end, parts.position());
            image.Bitmap = parts.bytes(std::min(rest, parts.remaining()));
            return false;
        }
        if (image.NbCouleurs > 0) {
            image.Couleurs = parts.bytes(*TaillePalette(image.NbCouleurs, image.ColorMode));
        }
        if (hasPixels) {
            image.Bitmap = parts.bytes(TailleBitmap(image, poi.Largeur, poi.Hauteur).value_or(0));
        }
        return true;
    }

    bool nightPicture() {
        std::array<std::uint8_t, kPairSize> pair{};
        parts.fill(pair);
        ImagePOI& night = poi.Image[1];
        night.NbCouleurs = pair[0];
        night.ColorMode = pair[1];
        const bool hasPixels = nightHasPixels(poi);
        if (!picture(night, hasPixels)) {
            return false;
        }
        if (!hasPixels) {
            night.Bitmap = poi.Image[0].Bitmap;
        }
        return true;
    }

    void record() {
        std::array<std::uint8_t, kHeadSize> head{};
        parts.fill(head);
        poi.Entete = head[0];
        poi.Largeur = head[1];
        poi.Hauteur = head[2];
        ImagePOI& day = poi.Image[0];
        day.NbCouleurs = head[3];
        day.ColorMode = head[4];
        day.Retente = attempt.Retente;
        if (!picture(day, true) || ((poi.Entete & kNight) != 0 && !nightPicture())) {
            return;
        }
        if ((poi.Entete & kStrings) != 0) {
            poi.Strings = readStrings(parts);
        }
        if ((poi.Entete & kExtendedLabels) != 0) {
            poi.ExtendedLabels = readExtendedLabels(parts);
        }
    }
};

// The failures of the attempt.
std::vector<ErrorFacts> read(const PoiPlace& place, Attempt attempt, POI& poi) {
    const auto room = static_cast<std::size_t>(std::max<std::int64_t>(0, place.room));
    Reading reading{PartReader(place.data, place.position), place.position + room, attempt, poi};
    reading.record();
    return reading.parts.failures();
}

bool fits(const POI& poi, std::int64_t room) {
    return static_cast<std::int64_t>(recordSize(poi)) == room;
}

// Warnings of one record, below one heading.
class PoiWarnings {
  public:
    explicit PoiWarnings(ReadContext& context) : context_(context) {}

    void add(const std::string& text) {
        text_ += "\r\n    " + context_.Trad("Main", "Attention", "msgWarning") + ": " + text;
    }
    void addPaletteCoding() {
        const std::string next = "\r\n        ";
        add(context_.Trad("Main", "Le bitmap", "msgBitmapInvalide1") + ' ' +
            context_.Trad("Main", "est invalide.", "msgBitmapInvalide2") + next +
            context_.Trad("Main",
                          "Détails: le nombre de couleurs du bitmap est 0 (comme s'il s'agissait "
                          "d'un bitmap TrueColor),",
                          "msgBitmapInvalide3") +
            next +
            context_.Trad("Main", "mais il est codé comme un bitmap avec palette.",
                          "msgBitmapInvalide4") +
            next +
            context_.Trad("Main",
                          "Quillmark pourra malgré tout l'enregistrer sous cette forme, mais le "
                          "POI sera très certainement inutilisable.",
                          "msgBitmapInvalide5") +
            next +
            context_.Trad("Main",
                          "Il vaut mieux l'enregistrer en ajoutant une couleur dans la palette.",
                          "msgBitmapInvalide6"));
    }
    void addLength(const POI& poi) {
        add(context_.Trad("Main", "Longueur inattendue", "msgErreurPOI2"));
        if ((poi.Entete & kNight) != 0 && poi.Image[1].NbCouleurs == 0) {
            // Two tests of the picture lead here, and each has its own say.
            const std::string night =
                ".Le bitmap de nuit n'a pas de palette (0 couleur) et semble corrompu.";
            add(night);
            add(night);
        }
    }
    void tell(const std::function<std::string()>& heading) {
        if (text_.empty()) {
            return;
        }
        context_.add(JournalKind::warning, heading() + text_);
    }

  private:
    ReadContext& context_;
    std::string text_;
};

// What another way of reading has to do to count.
enum class Demand : std::uint8_t { fits, staysWithin };

// Reads the record in another way, which counts only when it then is as long as its room, or no
// longer.
bool readAgain(const PoiPlace& place, Attempt attempt, Demand demand, POI& poi,
               std::vector<ErrorFacts>& failures) {
    POI other;
    other.Type = poi.Type;
    other.SubType = poi.SubType;
    other.Offset = poi.Offset;
    std::vector<ErrorFacts> otherFailures = read(place, attempt, other);
    const bool usable = attempt.unknownMode == UnknownMode::rest
                            ? holdsRest(other, other.Image[0]) || holdsRest(other, other.Image[1])
                            : otherFailures.empty();
    const bool within =
        demand == Demand::staysWithin && static_cast<std::int64_t>(recordSize(other)) <= place.room;
    if (!usable || !(within || fits(other, place.room))) {
        return false;
    }
    poi = std::move(other);
    failures = std::move(otherFailures);
    return true;
}

bool wantsPaletteCoding(const POI& poi) {
    return hasSize(poi) && poi.Image[0].NbCouleurs == 0 && modeKnown(poi.Image[0]);
}

std::size_t pictureSize(const POI& poi, const ImagePOI& image, bool hasPixels) {
    if (!hasSize(poi)) {
        return image.Couleurs.size();
    }
    return (image.NbCouleurs > 0 ? image.Couleurs.size() : 0) +
           (hasPixels ? image.Bitmap.size() : 0);
}

void writePicture(ByteWriter& writer, const POI& poi, const ImagePOI& image, bool hasPixels) {
    if (!hasSize(poi)) {
        writer.bytes(image.Couleurs);
        return;
    }
    if (image.NbCouleurs > 0) {
        writer.bytes(image.Couleurs);
    }
    if (hasPixels) {
        writer.bytes(image.Bitmap);
    }
}

}  // namespace

void readPoi(ReadContext& context, const PoiPlace& place,
             const std::function<std::string()>& heading, POI& poi) {
    std::vector<ErrorFacts> failures = read(place, {}, poi);
    const bool failed = !failures.empty();
    // What fits its room is what was written there, even where the file is cut off within it.
    if (fits(poi, place.room)) {
        context.errors(failures);
    } else {
        const bool tooLong = failed || static_cast<std::int64_t>(recordSize(poi)) > place.room;
        PoiWarnings warnings(context);
        // Pixels without palette that don't fit may be coded as with one. When that doesn't fit
        // either, the first reading stands: it has more of what the file holds.
        const Attempt asPalette{-1, UnknownMode::noPixels, false};
        if (wantsPaletteCoding(poi) && readAgain(place, asPalette, Demand::fits, poi, failures)) {
            if (!failed) {
                warnings.addPaletteCoding();
            }
        } else if (tooLong && wantsPaletteCoding(poi) &&
                   readAgain(place, asPalette, Demand::staysWithin, poi, failures)) {
            if (!failed) {
                warnings.addPaletteCoding();
            }
            warnings.addLength(poi);
        } else if (!readAgain(place, {0, UnknownMode::rest, false}, Demand::fits, poi, failures) &&
                   !readAgain(place, {0, UnknownMode::noPixels, true}, Demand::fits, poi,
                              failures)) {
            warnings.addLength(poi);
        }
        context.errors(failures);
        warnings.tell(heading);
    }
    const std::size_t there = place.data.size() - std::min(place.position, place.data.size());
    const std::size_t missing = recordSize(poi) - std::min(recordSize(poi), there);
    if (!context.pad(missing)) {
        // Nothing but zeros and too many of them: the point stays without picture.
        POI empty;
        std::swap(empty.Type, poi.Type);
        std::swap(empty.SubType, poi.SubType);
        empty.Offset = poi.Offset;
        poi = std::move(empty);
    }
    poi.Longueur = static_cast<std::int32_t>(recordSize(poi));
    context.charge(recordSize(poi) - std::min(recordSize(poi), missing) +
                   (nightHasPixels(poi) ? 0 : poi.Image[1].Bitmap.size()));
}

void raiseDimension(std::int16_t& dimension, const POI& poi) {
    dimension = std::max({dimension, std::int16_t{poi.Largeur}, std::int16_t{poi.Hauteur}});
}

void readPois(ReadContext& context, const SectionPlace& section,
              const std::vector<IndexEntry>& index, Document& document) {
    document.MaxDimensionPOI = 0;
    document.POI.resize(index.size());
    if (index.empty()) {
        return;
    }
    const bool there = dataSectionThere(context, section);
    RecordRooms rooms(index, section.size);
    for (std::size_t i = 0; i < index.size(); ++i) {
        POI& poi = document.POI[i];
        const IndexEntry& entry = index[i];
        setIdentity(poi.Type, poi.SubType, entry.identity);
        poi.Offset = static_cast<std::int32_t>(entry.offset);
        const PoiPlace place{context.file(), std::size_t{section.offset} + entry.offset,
                             rooms.room(entry.offset)};
        context.setObject({ObjectKind::POI, entry.identity});
        if (there && recordThere(context, place.position)) {
            readPoi(
                context, place, [&] { return "POI" + identityText(entry.identity); }, poi);
            raiseDimension(document.MaxDimensionPOI, poi);
        } else {
            poi.Longueur = kHeadSize;
        }
    }
}

std::size_t recordSize(const POI& poi) {
    const ImagePOI& day = poi.Image[0];
    const ImagePOI& night = poi.Image[1];
    std::size_t size = kHeadSize + pictureSize(poi, day, true);
    if (holdsRest(poi, day)) {
        return size;
    }
    if ((poi.Entete & kNight) != 0) {
        if (holdsRest(poi, night)) {
            return size + kPairSize + pictureSize(poi, night, true);
        }
        size += kPairSize + pictureSize(poi, night, nightHasPixels(poi));
    }
    return size + ((poi.Entete & kStrings) != 0 ? poi.Strings.size() : 0) +
           ((poi.Entete & kExtendedLabels) != 0 ? poi.ExtendedLabels.size() : 0);
}

void writePoi(ByteWriter& writer, const POI& poi) {
    const ImagePOI& day = poi.Image[0];
    const ImagePOI& night = poi.Image[1];
    writer.bytes(std::array<std::uint8_t, kHeadSize>{poi.Entete, poi.Largeur, poi.Hauteur,
                                                     day.NbCouleurs, day.ColorMode});
    writePicture(writer, poi, day, true);
    if (holdsRest(poi, day)) {
        return;
    }
    if ((poi.Entete & kNight) != 0) {
        writer.u8(night.NbCouleurs);
        writer.u8(night.ColorMode);
        writePicture(writer, poi, night, nightHasPixels(poi) || holdsRest(poi, night));
        if (holdsRest(poi, night)) {
            return;
        }
    }
    if ((poi.Entete & kStrings) != 0) {
        writer.bytes(poi.Strings);
    }
    if ((poi.Entete & kExtendedLabels) != 0) {
        writer.bytes(poi.ExtendedLabels);
    }
}

void writePois(ByteWriter& writer, std::vector<POI>& pois, SectionPlace& data, IndexPlace& index) {
    data = {};
    index = {};
    if (pois.empty()) {
        return;
    }
    const std::size_t start = writer.position();
    std::vector<IndexEntry> entries;
    entries.reserve(pois.size());
    for (POI& poi : pois) {
        const std::size_t position = writer.position();
        const std::uint32_t offset = checkedOffset(position - start);
        entries.push_back({checkedIdentity(poi.Type, poi.SubType), {}, offset});
        poi.Offset = static_cast<std::int32_t>(offset);
        writePoi(writer, poi);
        poi.Longueur = static_cast<std::int32_t>(writer.position() - position);
    }
    data = placeBetween(start, writer.position());
    index = writeIndex(writer, entries, IndexKind::plain, data.size);
}

}  // namespace quillmark
