#include "session/counterpart.h"

#include <tuple>

namespace quillmark {
namespace {

auto identityOf(const Polygone& polygon) {
    return std::tie(polygon.Type, polygon.SubType);
}

auto identityOf(const Polyline& line) {
    return std::tie(line.Type, line.SubType, line.ActiveRouting);
}

auto identityOf(const POI& poi) {
    return std::tie(poi.Type, poi.SubType);
}

auto identityOf(const ExtraPOI& group) {
    return std::tie(group.BrandID);
}

// A line whose activity changed is still the same one to whoever selected it.
auto typeOf(const Polyline& line) {
    return std::tie(line.Type, line.SubType);
}

template <typename Record, typename Identity>
int find(const std::vector<Record>& from, const std::vector<Record>& to, int place,
         const Identity& identity) {
    const auto at = static_cast<std::size_t>(place);
    const auto wanted = identity(from[at]);
    if (at < to.size() && identity(to[at]) == wanted) {
        return place;
    }
    int before = 0;
    for (std::size_t i = 0; i < at; ++i) {
        before += identity(from[i]) == wanted ? 1 : 0;
    }
    for (std::size_t i = 0; i < to.size(); ++i) {
        if (identity(to[i]) == wanted && before-- == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

template <typename Record>
int find(const std::vector<Record>& from, const std::vector<Record>& to, int place) {
    return find(from, to, place, [](const Record& record) { return identityOf(record); });
}

}  // namespace

ObjectRef counterpart(const Document& from, const Document& to, const ObjectRef& object) {
    if (!exists(from, object)) {
        return {};
    }
    ObjectRef found = object;
    switch (object.kind) {
        case ObjectKind::Polygone:
            found.index = find(from.Polygone, to.Polygone, object.index);
            break;
        case ObjectKind::Polyline:
            found.index = find(from.Polyline, to.Polyline, object.index);
            if (found.index < 0) {
                found.index = find(from.Polyline, to.Polyline, object.index,
                                   [](const Polyline& line) { return typeOf(line); });
            }
            break;
        case ObjectKind::POI:
            found.index = find(from.POI, to.POI, object.index);
            break;
        case ObjectKind::ExtraPOI:
            found.index = find(from.ExtraPOI, to.ExtraPOI, object.index);
            break;
        case ObjectKind::none:
            break;
    }
    return exists(to, found) ? found : ObjectRef{};
}

}  // namespace quillmark
