// Sections of polygons and lines.
#include <algorithm>

#include "text/format.h"
#include "text/generator.h"
#include "text/generator_parts.h"

namespace quillmark {
namespace {

std::string_view activityName(const std::array<std::uint8_t, 2>& bytes) {
    for (const auto& activity : format::kWrittenActivities) {
        if (activity.first == bytes[0] && activity.second == bytes[1]) {
            return activity.name;
        }
    }
    return format::kUnknownActivity;
}

std::string objectPlace(const std::string& Type, const std::string& SubType) {
    return " Type=0x" + Type + "   SubType=0x" + SubType;
}

// The layouts that text can spell; the others come back as something else.
bool textHolds(const Polygone& polygone) {
    return NombreCouleurs(polygone.Entete) > 0 && isKnownPolygon(polygone.Entete);
}

void writeWidths(ObjectLines& object, const Polyline& line) {
    TextWriter& out = object.out;
    const int width = line.Bitmap.empty() ? 0 : line.Bitmap[0];
    out.raw("LineWidth=").number(width).end();
    if (line.Bitmap.size() < 2) {
        return;
    }
    // The second byte is the whole width, both borders included.
    const int difference = line.Bitmap[1] - width;
    out.raw("BorderWidth=").number(std::max(difference / 2, 0)).end();
    if (difference < 0 || difference % 2 != 0) {
        const std::string place = objectPlace(line.Type, line.SubType);
        object.journal.warning(
            translate(object.context, "Main",
                      "Largeur de bordure arrondie dans le texte:", "msgBordureArrondie") +
                place,
            place);
    }
}

void writeLineXpm(TextWriter& out, const Polyline& line) {
    const int rows = line.Entete >> 3;
    const ByteView colours = line.Couleurs;
    if (rows > 0) {
        const bool night = (line.Entete & colour_bits::kNight) != 0;
        out.raw("Xpm=\"32 ").number(rows).raw(night ? " 4  1\"" : " 2  1\"").end();
        writePatternPalette(out, line.Entete, colours, nullptr);
        writePatternRows(out, line.Entete, line.Bitmap);
        return;
    }
    if ((line.Entete & colour_bits::kAll) == (colour_bits::kNight | colour_bits::kDayTransparent)) {
        // A line without border by day and with one by night: only the four numbers with "none"
        // in the second place tell it from its opposite.
        out.line("Xpm=\"0 0 4 0\"");
        out.raw("\"1 c ").storedColour(colours, 0).raw("\"").end();
        out.line("\"2 c none\"");
        out.raw("\"3 c ").storedColour(colours, 1).raw("\"").end();
        out.raw("\"4 c ").storedColour(colours, 2).raw("\"").end();
        return;
    }
    out.raw("Xpm=\"0 0 ").number(static_cast<int>(colours.size() / 3)).raw(" 0\"").end();
    writeNumberedPalette(out, colours, nullptr);
}

}  // namespace

void AffichePolygone(const Polygone& polygone, const GeneratorContext& context, int CodePage,
                     std::string& text, Journal& journal) {
    TextWriter out(text);
    ObjectLines object{context, CodePage, out, journal, polygone.Type, polygone.SubType};
    const bool hasPattern = (polygone.Entete & polygon_bits::kBitmap) != 0;
    const Bytes* alpha = (polygone.Entete & polygon_bits::kAlpha) != 0 ? &polygone.Alpha : nullptr;

    out.line(format::kPolygon);
    writeTypeLine(object);
    writeDescription(object, "Polygons");
    writeComment(object, polygone.Comment);
    if ((polygone.Entete & polygon_bits::kStrings) != 0) {
        writeStrings(object, polygone.Strings, [](const GeneratorContext& c) {
            return translate(c, "Main", "Problème de lecture des strings du polygone",
                             "msgProblemeStringPolygone");
        });
    }
    writeCustomName(object, polygone.CustomMPCName);
    lecture_ExtendedLabels(object, (polygone.Entete & polygon_bits::kExtendedLabels) != 0,
                           polygone.ExtendedLabels);
    if (hasPattern) {
        const bool night = (polygone.Entete & colour_bits::kNight) != 0;
        out.line(night ? "Xpm=\"32 32 4 1\"" : "Xpm=\"32 32 2 1\"");
        writePatternPalette(out, polygone.Entete, polygone.Couleurs, alpha);
        writePatternRows(out, polygone.Entete, polygone.Bitmap);
    } else {
        const int colours = static_cast<int>(polygone.Couleurs.size() / 3);
        out.raw("Xpm=\"0 0 ").number(colours).raw(" 0\"").end();
        writeNumberedPalette(out, polygone.Couleurs, alpha);
    }
    out.line(format::kObjectEnd);
    if (!textHolds(polygone)) {
        const std::string place = objectPlace(polygone.Type, polygone.SubType);
        journal.error(
            translate(context, "Main", "Problème avec le polygone", "msgProblemePolygone") + place,
            place);
    }
}

void AffichePolyline(const Polyline& polyline, const GeneratorContext& context, int CodePage,
                     std::string& text, Journal& journal) {
    TextWriter out(text);
    ObjectLines object{context, CodePage, out, journal, polyline.Type, polyline.SubType};

    out.line(format::kLine);
    writeTypeLine(object);
    writeDescription(object, "Polylines");
    if (polyline.isActiveRouting()) {
        out.raw("Activity=").line(activityName(polyline.ActiveRouting));
    }
    writeComment(object, polyline.Comment);
    out.line((polyline.Entete2 & line_bits::kNoOrientation) == 0 ? "UseOrientation=Y"
                                                                 : "UseOrientation=N");
    if (polyline.Entete >> 3 == 0) {
        writeWidths(object, polyline);
    }
    if ((polyline.Entete2 & line_bits::kStrings) != 0) {
        writeStrings(object, polyline.Strings, [](const GeneratorContext& c) {
            return translate(c, "Main", "Problème de lecture des strings de la polyline",
                             "msgProblemeStringPolyline");
        });
    }
    writeCustomName(object, polyline.CustomMPCName);
    lecture_ExtendedLabels(object, (polyline.Entete2 & line_bits::kExtendedLabels) != 0,
                           polyline.ExtendedLabels);
    writeLineXpm(out, polyline);
    out.line(format::kObjectEnd);
    if (NombreCouleurs(polyline.Entete) < 0) {
        const std::string place = objectPlace(polyline.Type, polyline.SubType);
        journal.error(
            translate(context, "Main", "Problème avec la polyligne", "msgProblemePolyligne") +
                place,
            place);
    }
}

}  // namespace quillmark
