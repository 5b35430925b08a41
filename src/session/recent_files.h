// The files opened and saved last, newest first, shared with other processes through the settings.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "core/settings.h"

namespace quillmark {

class RecentFiles {
  public:
    static constexpr std::size_t kMost = 8;

    explicit RecentFiles(SettingsStore& store) : store_(store) {}

    // Paths as text, absolute. Read from the store at each call; no file is looked at.
    [[nodiscard]] std::vector<std::string> paths() const;
    // To the top, once; the oldest beyond eight go.
    void add(const std::filesystem::path& file);
    void remove(const std::filesystem::path& file);
    void clear();

  private:
    void write(const std::vector<std::string>& paths);

    SettingsStore& store_;
};

}  // namespace quillmark
