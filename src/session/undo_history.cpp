#include "session/undo_history.h"

#include <utility>

namespace quillmark {
namespace {

// What a record costs beside the bytes it holds.
constexpr std::size_t kRecordCost = 64;

std::size_t memoryOf(const POI& poi) {
    return sizeof(POI) + kRecordCost + poi.Strings.size() + poi.ExtendedLabels.size() +
           poi.Comment.size() + poi.CustomMPCName.size() + poi.Image[0].Bitmap.size() +
           poi.Image[1].Bitmap.size() + poi.Image[0].Couleurs.size() + poi.Image[1].Couleurs.size();
}

}  // namespace

std::size_t memoryOf(const Document& document) {
    std::size_t bytes = sizeof(Document) + document.Commentaire.size() +
                        document.LabelsStrings.size() + document.LabelsTableA.size() +
                        document.LabelsTableB.size() + document.BlocBrut.size() +
                        document.EntreSections.size() + document.EnteteInconnu.size() +
                        document.DrawOrder.size() * sizeof(DrawOrderItem) +
                        document.ListDraworder.size() * (sizeof(std::string) + kRecordCost);
    for (const Polygone& polygon : document.Polygone) {
        bytes += sizeof(Polygone) + kRecordCost + polygon.Strings.size() + polygon.Couleurs.size() +
                 polygon.Alpha.size() + polygon.ExtendedLabels.size() + polygon.Comment.size() +
                 polygon.CustomMPCName.size();
    }
    for (const Polyline& line : document.Polyline) {
        bytes += sizeof(Polyline) + kRecordCost + line.Strings.size() + line.Couleurs.size() +
                 line.Bitmap.size() + line.ExtendedLabels.size() + line.Comment.size() +
                 line.CustomMPCName.size();
    }
    for (const POI& poi : document.POI) {
        bytes += memoryOf(poi);
    }
    for (const ExtraPOI& group : document.ExtraPOI) {
        bytes += sizeof(ExtraPOI);
        for (const POI& poi : group.POI) {
            bytes += memoryOf(poi);
        }
    }
    return bytes;
}

bool UndoHistory::join(const std::string& merge) {
    if (merge.empty() || merge != merge_ || undo_.empty()) {
        return false;
    }
    position_ = ++last_;
    return true;
}

void UndoHistory::record(Document before, const ObjectRef& object, const std::string& merge) {
    for (const Kept& kept : redo_) {
        memory_ -= kept.memory;
    }
    redo_.clear();
    const std::size_t memory = memoryOf(before);
    undo_.push_back({{std::move(before), object}, memory, position_});
    memory_ += memory;
    bound();
    merge_ = merge;
    position_ = ++last_;
}

void UndoHistory::endMerge(const Document& document) {
    if (!merge_.empty() && !undo_.empty() && undo_.back().step.document == document) {
        position_ = undo_.back().position;
        memory_ -= undo_.back().memory;
        undo_.pop_back();
    }
    merge_.clear();
}

void UndoHistory::bound() {
    // The newest step of each side stays, however large it is; what lies furthest goes first.
    while (memory_ > memoryLimit_ && (undo_.size() > 1 || redo_.size() > 1)) {
        std::deque<Kept>& longer = undo_.size() > 1 ? undo_ : redo_;
        memory_ -= longer.front().memory;
        longer.pop_front();
    }
}

const UndoHistory::Step* UndoHistory::nextUndo() const {
    return undo_.empty() ? nullptr : &undo_.back().step;
}

const UndoHistory::Step* UndoHistory::nextRedo() const {
    return redo_.empty() ? nullptr : &redo_.back().step;
}

std::optional<ObjectRef> UndoHistory::undo(Document& document) {
    return exchange(undo_, redo_, document);
}

std::optional<ObjectRef> UndoHistory::redo(Document& document) {
    return exchange(redo_, undo_, document);
}

std::optional<ObjectRef> UndoHistory::exchange(std::deque<Kept>& from, std::deque<Kept>& to,
                                               Document& document) {
    merge_.clear();
    if (from.empty()) {
        return std::nullopt;
    }
    Kept kept = std::move(from.back());
    from.pop_back();
    std::swap(kept.step.document, document);
    std::swap(kept.position, position_);
    memory_ -= kept.memory;
    kept.memory = memoryOf(kept.step.document);
    memory_ += kept.memory;
    const ObjectRef object = kept.step.object;
    to.push_back(std::move(kept));
    bound();
    return object;
}

void UndoHistory::clear() {
    undo_.clear();
    redo_.clear();
    merge_.clear();
    memory_ = 0;
    position_ = ++last_;
    saved_ = position_;
}

void UndoHistory::markSaved() {
    merge_.clear();
    saved_ = position_;
}

}  // namespace quillmark
