#include "views/icon_sheet.h"

#include <algorithm>

#include "bitmap/patterns.h"
#include "views/device_pixels.h"
#include "views/object_rows.h"
#include "views/readable_colour.h"

namespace quillmark {
namespace {

constexpr int kRim = 16;  // of a cell, around the picture
constexpr int kSmallestRoom = 32;

bool isPoint(ObjectKind kind) {
    return kind == ObjectKind::POI || kind == ObjectKind::ExtraPOI;
}

int largestSide(const std::vector<POI>& points) {
    int largest = 0;
    for (const POI& point : points) {
        largest = std::max({largest, int{point.Largeur}, int{point.Hauteur}});
    }
    return largest;
}

int largestSide(const Document& document, ObjectKind kind) {
    int largest = 0;
    if (kind == ObjectKind::POI) {
        largest = largestSide(document.POI);
    } else if (kind == ObjectKind::ExtraPOI) {
        for (const ExtraPOI& group : document.ExtraPOI) {
            largest = std::max(largest, largestSide(group.POI));
        }
    }
    return largest;
}

}  // namespace

int IconSheet::cellCount(const Document& document, ObjectKind kind) {
    if (kind != ObjectKind::ExtraPOI) {
        return objectCount(document, kind);
    }
    std::size_t members = 0;
    for (const ExtraPOI& group : document.ExtraPOI) {
        members += group.POI.size();
    }
    return static_cast<int>(members);
}

void IconSheet::setOptions(const SheetOptions& options) {
    const bool otherKind = options.kind != options_.kind;
    options_ = options;
    options_.factor = std::clamp(options.factor, 1, kLargestFactor);
    if (otherKind) {
        refresh();
    } else {
        lay();
    }
}

void IconSheet::setWidth(std::int64_t width) {
    width_ = width;
    lay();
}

void IconSheet::refresh() {
    largest_ = largestSide(document_, options_.kind);
    firstCells_.clear();
    if (options_.kind == ObjectKind::ExtraPOI) {
        firstCells_.push_back(0);
        for (const ExtraPOI& group : document_.ExtraPOI) {
            firstCells_.push_back(firstCells_.back() + static_cast<int>(group.POI.size()));
        }
    }
    lay();
}

void IconSheet::lay() {
    const int room = isPoint(options_.kind) ? std::max(kSmallestRoom, largest_) : kPatternSide;
    const int side = (room + kRim) * options_.factor;
    layout_ = SheetLayout(cellCount(document_, options_.kind), width_, side,
                          side + labelLines(options_.labels) * options_.lineHeight);
    // On a screen of fractional scale rounding up may pass the cell.
    scale_ = deviceScale(options_.factor, options_.ratio);
    while (scale_ > 1 && room * scale_ > deviceLength(side, options_.ratio)) {
        --scale_;
    }
}

ObjectRef IconSheet::objectAt(int cell) const {
    if (cell < 0 || cell >= layout_.count()) {
        return {};
    }
    if (options_.kind != ObjectKind::ExtraPOI) {
        return {options_.kind, cell, 0};
    }
    const auto behind = std::upper_bound(firstCells_.begin(), firstCells_.end(), cell);
    const auto group = static_cast<int>(behind - firstCells_.begin()) - 1;
    return {options_.kind, group, cell - firstCells_[static_cast<std::size_t>(group)]};
}

int IconSheet::cellOf(const ObjectRef& object) const {
    if (object.kind != options_.kind || !exists(document_, object)) {
        return -1;
    }
    if (object.kind != ObjectKind::ExtraPOI) {
        return object.index < layout_.count() ? object.index : -1;
    }
    const auto group = static_cast<std::size_t>(object.index);
    // Between a change of the document and `refresh` groups may stand elsewhere.
    const bool has = group + 1 < firstCells_.size() &&
                     object.member < firstCells_[group + 1] - firstCells_[group];
    return has ? firstCells_[group] + object.member : -1;
}

std::vector<SheetCell> IconSheet::cells(std::int64_t top, std::int64_t height) {
    std::vector<SheetCell> result;
    const SheetLayout::Range range = layout_.between(top, height);
    for (int i = range.first; i < range.last; ++i) {
        result.push_back(cell(i));
    }
    return result;
}

SheetCell IconSheet::cell(int index) {
    SheetCell cell{index, objectAt(index), layout_.cell(index), {}, {}};
    cell.picture = pictureOf(cell.object);
    if (showsType(options_.labels)) {
        SheetLine line{sheetType(document_, cell.object, traduction_), options_.text};
        if (cell.object.kind == ObjectKind::Polyline) {
            const int activity =
                activityIndex(document_.Polyline[static_cast<std::size_t>(cell.object.index)]);
            const Couleur colour =
                activity < 0 ? -1 : options_.activities[static_cast<std::size_t>(activity)];
            line.colour = colour < 0 ? options_.text : readableOn(colour, options_.ground);
        }
        cell.lines.push_back(std::move(line));
    }
    if (showsText(options_.labels)) {
        cell.lines.push_back({cutLabel(sheetLabel(document_, cell.object, options_.LangueLabels),
                                       options_.factor, options_.fontSize),
                              options_.text});
    }
    return cell;
}

std::string IconSheet::tip(int cell) {
    const ObjectRef object = objectAt(cell);
    if (object.kind == ObjectKind::none) {
        return {};
    }
    const std::string reason =
        faultTip(pictureOf(object)->faults, headByte(document_, object), traduction_);
    const std::string tip = sheetTip(document_, object, options_.LangueLabels);
    return reason.empty() ? tip : tip + "\n" + reason;
}

int IconSheet::pictureHeight() const {
    return layout_.cellHeight() - labelLines(options_.labels) * options_.lineHeight;
}

Rectangle IconSheet::pictureIn(const Image& picture) const {
    const int width = picture.width() * scale_;
    const int height = picture.height() * scale_;
    return {floorHalf(deviceLength(layout_.cellWidth(), options_.ratio) - width),
            floorHalf(deviceLength(pictureHeight(), options_.ratio) - height), width, height};
}

std::shared_ptr<const Picture> IconSheet::pictureOf(const ObjectRef& object) {
    std::string content = pictureContent(document_, object);
    content += options_.night ? 'n' : 'd';
    content += options_.blended ? 'b' : 'p';
    const auto make = [&] {
        return afficheObjet(document_, object, options_.blended).at(options_.night);
    };
    return pictures_.get(std::move(content), make, [](const Picture& picture) {
        return sizeof(Picture) + static_cast<std::size_t>(picture.image.width()) *
                                     static_cast<std::size_t>(picture.image.height()) *
                                     sizeof(Couleur);
    });
}

}  // namespace quillmark
