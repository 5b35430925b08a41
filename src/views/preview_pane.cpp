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
    if (object_.kind == ObjectKind::Polygone) {
        remember(object_);
    }
}

void PreviewPane::remember(const ObjectRef& polygon) {
    if (!exists(document_, polygon)) {
        PolygoneAffiche_ = {};
        return;
    }
    PolygoneAffiche_ = polygon;
    const auto at = document_.Polygone.begin() + polygon.index;
    lastType_ = at->Type;
    lastSubType_ = at->SubType;
    lastRank_ = std::count_if(document_.Polygone.begin(), at, [&](const Polygone& other) {
        return other.Type == lastType_ && other.SubType == lastSubType_;
    });
}

ObjectRef PreviewPane::rememberedPolygon() const {
    std::ptrdiff_t rank = 0;
    for (std::size_t i = 0; i < document_.Polygone.size(); ++i) {
        const Polygone& polygon = document_.Polygone[i];
        if (polygon.Type == lastType_ && polygon.SubType == lastSubType_ && rank++ == lastRank_) {
            return {ObjectKind::Polygone, static_cast<int>(i), 0};
        }
    }
    return {};
}

void PreviewPane::follow(const Change& change) {
    const bool anywhere =
        change.what == Change::What::content && PolygoneAffiche_.kind != ObjectKind::none;
    // A selected polygon is the last one, whatever became of others.
    if (object_.kind == ObjectKind::Polygone && exists(document_, object_)) {
        remember(object_);
    } else {
        remember(anywhere ? rememberedPolygon() : quillmark::follow(PolygoneAffiche_, change));
    }
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
    panes.dayFaults = {pictures.day.faults, below.day.faults};
    panes.nightFaults = {pictures.at(true).faults, below.at(true).faults};
    return panes;
}

std::string PreviewPane::tip(const Faults& faults, const Traduction& traduction) const {
    std::string tip = faultTip(faults.object, headByte(document_, object_), traduction);
    const std::uint8_t head = headByte(document_, PolygoneAffiche_);
    PictureFaults more = faults.below;
    more.layout = more.layout && !(faults.object.layout && head == headByte(document_, object_));
    more.colourMode = more.colourMode && !faults.object.colourMode;
    more.colours = more.colours && !faults.object.colours;
    more.bytes = more.bytes && !faults.object.bytes;
    if (more.any()) {
        tip += tip.empty() ? "" : "\n";
        tip += faultTip(more, head, traduction);
    }
    return tip;
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
    if (Faults{picture.faults, below.at(night).faults}.any()) {
        const Image mark = faultMark();
        layOver(pane, mark, side - (mark.width() + 4) * one, side - (mark.height() + 4) * one, one);
    }
    return pane;
}

}  // namespace quillmark
