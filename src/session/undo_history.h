// Undo and redo as snapshots of the whole document, bounded by memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>

#include "core/object_ref.h"

namespace quillmark {

// Bytes that a document holds, roughly.
[[nodiscard]] std::size_t memoryOf(const Document& document);

class UndoHistory {
  public:
    static constexpr std::size_t kMemoryLimit = std::size_t{256} * 1024 * 1024;

    struct Step {
        Document document;  // as it stands on the other side of the step
        ObjectRef object;   // what the step was about, selected after an undo
    };

    explicit UndoHistory(std::size_t memoryLimit = kMemoryLimit) : memoryLimit_(memoryLimit) {}

    // Keeps `before` as the state that an undo brings back.
    void record(Document before, const ObjectRef& object, const std::string& merge = {});
    // Edits of one non-empty `merge` in a row are one step (typing in one field), until
    // `endMerge`: with true the newest step stands for this edit too, and nothing is recorded.
    [[nodiscard]] bool join(const std::string& merge);
    // A step whose edits led back to where it began is none.
    void endMerge(const Document& document);

    [[nodiscard]] bool canUndo() const noexcept { return !undo_.empty(); }
    [[nodiscard]] bool canRedo() const noexcept { return !redo_.empty(); }
    // What the next undo or redo would put in place; null when there is none.
    [[nodiscard]] const Step* nextUndo() const;
    [[nodiscard]] const Step* nextRedo() const;
    // Exchanges `document` with the newest step; nothing when there is none.
    std::optional<ObjectRef> undo(Document& document);
    std::optional<ObjectRef> redo(Document& document);

    void clear();
    // The state of now is what the file holds.
    void markSaved();
    [[nodiscard]] bool isSaved() const noexcept { return position_ == saved_; }

  private:
    struct Kept {
        Step step;
        std::size_t memory = 0;
        std::uint64_t position = 0;  // of the state that `step` holds
    };
    void bound();
    std::optional<ObjectRef> exchange(std::deque<Kept>& from, std::deque<Kept>& to,
                                      Document& document);

    std::deque<Kept> undo_;
    std::deque<Kept> redo_;
    std::string merge_;
    std::size_t memoryLimit_;
    std::size_t memory_ = 0;
    std::uint64_t position_ = 1;  // names the state of now; no two states share one
    std::uint64_t last_ = 1;
    std::uint64_t saved_ = 1;
};

}  // namespace quillmark
