// What the previews show of one object: its pictures by day and night.
#pragma once

#include <string>

#include "bitmap/picture.h"
#include "core/object_ref.h"
#include "core/translation.h"

namespace quillmark {

struct ObjectPictures {
    Picture day;
    Picture night;          // the day's again without one of its own
    bool hasNight = false;  // `PolygoneNuit`, `PolylineNuit`

    [[nodiscard]] const Picture& at(bool ofNight) const { return ofNight ? night : day; }
};

// `blended`: alpha of colours takes effect ("Aperçu avec transparence").
[[nodiscard]] ObjectPictures affiche_vignette_polygone(const Polygone& polygone,
                                                       bool blended = false);
[[nodiscard]] ObjectPictures affiche_vignette_polyline(const Polyline& polyline);

// The same through one name for all kinds.
[[nodiscard]] ObjectPictures AffichePolygone(const Polygone& polygone, bool blended);
[[nodiscard]] ObjectPictures AffichePolyline(const Polyline& polyline, bool blended);
[[nodiscard]] ObjectPictures AffichePOI(const POI& poi, bool blended);
// Empty for an object that isn't there, and for a group without members.
[[nodiscard]] ObjectPictures afficheObjet(const Document& document, const ObjectRef& object,
                                          bool blended);

// The point that a reference to a point or a member names; null for others.
[[nodiscard]] const POI* pointOf(const Document& document, const ObjectRef& object);
// The first byte of a polygon or a line; 0 for others.
[[nodiscard]] std::uint8_t headByte(const Document& document, const ObjectRef& object);

// One reason a line, empty without faults. `Entete` is the first byte of the object.
[[nodiscard]] std::string faultTip(const PictureFaults& faults, std::uint8_t Entete,
                                   const Traduction& traduction);

// All that the pictures are made of, as bytes: equal ones give equal pictures.
[[nodiscard]] std::string pictureContent(const Document& document, const ObjectRef& object);

}  // namespace quillmark
