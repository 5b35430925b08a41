#include "views/preview_pane.h"

#include <algorithm>

#include "views/device_pixels.h"

namespace quillmark {
namespace {

constexpr int kMosaicTiles = 5;  // in a row

void Affiche_seul(Image& pane, const Image& tile, int scale) {
    layOver(pane, tile, floorHalf(pane.width() - tile.width() * scale),
            floorHalf(pane.height() - tile.height() * scale), scale);
}

void Affiche_Mosaique(Image& pane, const Image& tile, ObjectKind kind, int scale) {
    if (kind != ObjectKind::Polygone && kind != ObjectKind::Polyline) {
        return Affiche_seul(pane, tile, scale);
    }
    const int rows = kind == ObjectKind::Polygone ? kMosaicTiles : 1;
    const int width = tile.width() * scale;
    const int height = tile.height() * scale;
    const int left = floorHalf(pane.width() - kMosaicTiles * width);
    const int top = floorHalf(pane.height() - rows * height);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < kMosaicTiles; ++column) {
            layOver(pane, tile, left + column * width, top + row * height, scale);
        }
    }
}

}  // namespace

int PreviewPane::Facteur() const {
    return std::clamp(options.sldZoom, kZoomLow, kZoomHigh) / 100;
}

std::string PreviewPane::lblZoom(const Traduction& traduction) const {
    return traduction.Trad("Main", "Zoom", "lblZoom") + " : ×" + std::to_string(Facteur());
}

void PreviewPane::select(const ObjectRef& object) {
    object_ = object;
    rememberPolygon();
}

void PreviewPane::rememberPolygon() {
    if (object_.kind == ObjectKind::Polygone && exists(document_, object_)) {
        PolygoneAffiche_ = object_;
        const Polygone& polygon = document_.Polygone[static_cast<std::size_t>(object_.index)];
        lastType_ = polygon.Type;
        lastSubType_ = polygon.SubType;
    }
}

void PreviewPane::follow(const Change& change) {
    const bool samePlaces = change.object.kind != ObjectKind::Polygone;
    switch (change.what) {
        case Change::What::replaced:
            PolygoneAffiche_ = {};
            break;
        case Change::What::reordered:
            if (change.reordering) {
                PolygoneAffiche_ = change.reordering->follow(PolygoneAffiche_);
            }
            break;
        case Change::What::added:
            if (!samePlaces && PolygoneAffiche_.index >= change.object.index) {
                ++PolygoneAffiche_.index;
            }
            break;
        case Change::What::removed:
            if (!samePlaces && PolygoneAffiche_.index == change.object.index) {
                PolygoneAffiche_ = {};
            } else if (!samePlaces && PolygoneAffiche_.index > change.object.index) {
                --PolygoneAffiche_.index;
            }
            break;
        case Change::What::content: {
            const auto same = [this](const Polygone& polygon) {
                return polygon.Type == lastType_ && polygon.SubType == lastSubType_;
            };
            const auto& polygons = document_.Polygone;
            if (PolygoneAffiche_.kind == ObjectKind::none ||
                (exists(document_, PolygoneAffiche_) &&
                 same(polygons[static_cast<std::size_t>(PolygoneAffiche_.index)]))) {
                break;
            }
            const auto found = std::find_if(polygons.begin(), polygons.end(), same);
            PolygoneAffiche_ = found == polygons.end()
                                   ? ObjectRef{}
                                   : ObjectRef{ObjectKind::Polygone,
                                               static_cast<int>(found - polygons.begin()), 0};
            break;
        }
        default:
            break;
    }
    if (!exists(document_, PolygoneAffiche_)) {
        PolygoneAffiche_ = {};
    }
    // A selected polygon is the last one, whatever became of others.
    rememberPolygon();
}

int PreviewPane::memberCount() const {
    if (object_.kind != ObjectKind::ExtraPOI || !exists(document_, object_)) {
        return 0;
    }
    return static_cast<int>(document_.ExtraPOI[static_cast<std::size_t>(object_.index)].POI.size());
}

PreviewPane::Panes PreviewPane::maj_Aperçu() const {
    Panes panes;
    const ObjectPictures pictures = afficheObjet(document_, object_, options.blended);
    ObjectPictures below;
    const bool over = options.mode == PreviewMode::superposition &&
                      object_.kind != ObjectKind::none && object_.kind != ObjectKind::Polygone;
    if (over) {
        below = afficheObjet(document_, PolygoneAffiche_, options.blended);
    }
    panes.day = pane(pictures, below, false);
    panes.night = pane(pictures, below, true);
    panes.hasNight = pictures.hasNight || below.hasNight;
    panes.dayFaults = pictures.day.faults;
    panes.nightFaults = pictures.night.faults;
    return panes;
}

Image PreviewPane::pane(const ObjectPictures& pictures, const ObjectPictures& below,
                        bool night) const {
    const int side = deviceLength(kPaneSide, options.ratio);
    const int one = deviceScale(1, options.ratio);
    Image pane(side, side, kTransparent);
    const Picture& picture = pictures.at(night);
    if (options.mode == PreviewMode::single) {
        Affiche_seul(pane, picture.image, deviceScale(Facteur(), options.ratio));
    } else {
        Affiche_Mosaique(pane, below.at(night).image, ObjectKind::Polygone, one);
        Affiche_Mosaique(pane, picture.image, object_.kind, one);
    }
    paintGround(pane, options.ground, night, one);
    if (picture.faults.any()) {
        const Image mark = faultMark();
        layOver(pane, mark, side - (mark.width() + 4) * one, side - (mark.height() + 4) * one, one);
    }
    return pane;
}

}  // namespace quillmark
