// Earlier states of the document's text: compressed in memory, and in one growing file that
// outlives a crash.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <string>

#include "core/bytes.h"

namespace quillmark {

// Not safe to share between threads; who writes behind takes the bytes along.
class TextBackups {
  public:
    static constexpr std::size_t kMemoryLimit = std::size_t{64} * 1024 * 1024;
    static constexpr std::size_t kFileLimit = std::size_t{256} * 1024 * 1024;

    explicit TextBackups(std::size_t limit = kMemoryLimit) : limit_(limit) {}

    // What `prepare` made of a text, in any thread.
    struct Prepared {
        Bytes compressed;
        std::size_t size = 0;    // bytes of the text
        std::uint64_t hash = 0;  // of the text
    };
    [[nodiscard]] static Prepared prepare(const std::string& text);

    // True when the text is the newest element; it isn't to be added then.
    [[nodiscard]] bool isNewest(const Prepared& text) const;
    // Adds an element and gives its number, counted from 0 for the life of the process; the oldest
    // go when the list is above its limit.
    std::size_t add(Prepared text);

    [[nodiscard]] std::size_t count() const noexcept { return SauvegardesTexte_.size(); }
    // Of `position` 0 to count() - 1, oldest first.
    [[nodiscard]] std::string text(std::size_t position) const;
    [[nodiscard]] std::size_t number(std::size_t position) const { return first_ + position; }

  private:
    std::size_t limit_;
    std::deque<Prepared> SauvegardesTexte_;
    std::size_t first_ = 0;
    std::size_t memory_ = 0;
};

// One block of the backup file. `sauvegarde` is the word in front of the number.
[[nodiscard]] std::string backupBlock(const std::string& NomFichier, const std::string& sauvegarde,
                                      std::size_t number, const std::string& body);
// Adds a block to the file, over the last byte of the one before, so that readers find two stars
// of its end mark before the next header. Makes the folder; only the owner may read the file. A
// file that would pass `limit` becomes `Quillmark.save~`. Throws Failure.
void appendBackup(const std::filesystem::path& file, const std::string& block,
                  std::size_t limit = TextBackups::kFileLimit);
// At start: a file with content is kept as `Quillmark.save~`, an empty one goes.
void setAsideBackup(const std::filesystem::path& file);
// The file of an earlier run, next to the backup file.
[[nodiscard]] std::filesystem::path earlierBackup(const std::filesystem::path& file);

}  // namespace quillmark
