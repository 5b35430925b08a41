#include "views/object_pictures.h"

#include "bitmap/patterns.h"
#include "bitmap/poi_picture.h"

namespace quillmark {
namespace {

void append(std::string& content, ByteView bytes) {
    // The length in front keeps neighbouring parts apart.
    content += std::to_string(bytes.size());
    content += ':';
    content.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
}

void appendByte(std::string& content, unsigned value) {
    content += static_cast<char>(value);
}

void append(std::string& content, const POI& poi) {
    appendByte(content, poi.Entete & point_bits::kNight);
    appendByte(content, poi.Largeur);
    appendByte(content, poi.Hauteur);
    const std::size_t images = (poi.Entete & point_bits::kNight) != 0 ? 2 : 1;
    for (std::size_t i = 0; i < images; ++i) {
        const ImagePOI& image = poi.Image[i];
        appendByte(content, image.NbCouleurs);
        appendByte(content, image.ColorMode);
        appendByte(content, image.Retente == -1 ? 1 : 0);
        append(content, ByteView(image.Couleurs));
        append(content, ByteView(image.Bitmap));
    }
}

const Polygone& polygonAt(const Document& document, const ObjectRef& object) {
    return document.Polygone[static_cast<std::size_t>(object.index)];
}

const Polyline& lineAt(const Document& document, const ObjectRef& object) {
    return document.Polyline[static_cast<std::size_t>(object.index)];
}

}  // namespace

ObjectPictures affiche_vignette_polygone(const Polygone& polygone, bool blended) {
    ObjectPictures pictures;
    pictures.hasNight = hasNightColours(polygone.Entete) && colourRoles(polygone.Entete);
    pictures.day = polygonPicture(polygone, false, blended);
    pictures.night = pictures.hasNight ? polygonPicture(polygone, true, blended) : pictures.day;
    return pictures;
}

ObjectPictures affiche_vignette_polyline(const Polyline& polyline) {
    ObjectPictures pictures;
    pictures.hasNight = hasNightColours(polyline.Entete) && colourRoles(polyline.Entete);
    pictures.day = linePicture(polyline, false);
    pictures.night = pictures.hasNight ? linePicture(polyline, true) : pictures.day;
    return pictures;
}

ObjectPictures AffichePolygone(const Polygone& polygone, bool blended) {
    return affiche_vignette_polygone(polygone, blended);
}

ObjectPictures AffichePolyline(const Polyline& polyline, bool /*blended*/) {
    return affiche_vignette_polyline(polyline);
}

ObjectPictures AffichePOI(const POI& poi, bool blended) {
    ObjectPictures pictures;
    pictures.hasNight = (poi.Entete & point_bits::kNight) != 0;
    pictures.day = poiPicture(poi.Image[0], poi.Largeur, poi.Hauteur, blended);
    pictures.night = pictures.hasNight ? poiPicture(poi.Image[1], poi.Largeur, poi.Hauteur, blended)
                                       : pictures.day;
    return pictures;
}

ObjectPictures afficheObjet(const Document& document, const ObjectRef& object, bool blended) {
    if (const POI* poi = pointOf(document, object)) {
        return AffichePOI(*poi, blended);
    }
    if (!exists(document, object)) {
        return {};
    }
    switch (object.kind) {
        case ObjectKind::Polygone:
            return AffichePolygone(polygonAt(document, object), blended);
        case ObjectKind::Polyline:
            return AffichePolyline(lineAt(document, object), blended);
        default:
            return {};
    }
}

const POI* pointOf(const Document& document, const ObjectRef& object) {
    if (!exists(document, object)) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(object.index);
    if (object.kind == ObjectKind::POI) {
        return &document.POI[index];
    }
    if (object.kind == ObjectKind::ExtraPOI && !document.ExtraPOI[index].POI.empty()) {
        return &document.ExtraPOI[index].POI[static_cast<std::size_t>(object.member)];
    }
    return nullptr;
}

std::uint8_t headByte(const Document& document, const ObjectRef& object) {
    if (exists(document, object) && object.kind == ObjectKind::Polygone) {
        return polygonAt(document, object).Entete;
    }
    if (exists(document, object) && object.kind == ObjectKind::Polyline) {
        return lineAt(document, object).Entete;
    }
    return 0;
}

std::string faultTip(const PictureFaults& faults, std::uint8_t Entete,
                     const Traduction& traduction) {
    std::string tip;
    const auto add = [&tip](const std::string& reason) {
        tip += tip.empty() ? "" : "\n";
        tip += reason;
    };
    if (faults.layout) {
        add(traduction.Trad("Main", "1er octet d'en-tête", "msgEnteteInconnu") + " : 0x" +
            hexTextUpper(Entete, 2) + " !!!");
    }
    if (faults.colourMode) {
        add(traduction.Trad("Main", "Le mode de couleur du bitmap est inconnu.",
                            "msgColorModeInconnu"));
    }
    if (faults.colours) {
        add(traduction.Trad("Main", "Il manque des couleurs : ces pixels sont transparents.",
                            "msgCouleursManquantes"));
    }
    if (faults.bytes) {
        add(traduction.Trad("Main", "Il manque des octets : ces pixels sont transparents.",
                            "msgOctetsManquants"));
    }
    return tip;
}

std::string pictureContent(const Document& document, const ObjectRef& object) {
    std::string content;
    if (const POI* poi = pointOf(document, object)) {
        content = "P";
        append(content, *poi);
    } else if (exists(document, object) && object.kind == ObjectKind::Polygone) {
        const Polygone& polygone = polygonAt(document, object);
        content = "G";
        appendByte(content, polygone.Entete);
        append(content, polygone.Couleurs);
        append(content, polygone.Bitmap);
        append(content, polygone.Alpha);
    } else if (exists(document, object) && object.kind == ObjectKind::Polyline) {
        const Polyline& line = lineAt(document, object);
        content = "L";
        appendByte(content, line.Entete);
        append(content, line.Couleurs);
        append(content, line.Bitmap);
    }
    return content;
}

}  // namespace quillmark
