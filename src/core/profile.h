// Files of the classic settings form: `[section]` lines and `key=value` lines. Sections and keys
// are found without regard to case, the first of two equal ones counts.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillmark {

class Profile {
  public:
    Profile() = default;
    // UTF-8, with or without BOM, or UTF-16 with one; text that is neither is windows-1252.
    static Profile parse(std::string_view text);
    // An absent or unreadable file is an empty profile.
    static Profile load(const std::filesystem::path& file);

    // The value, at most 1023 characters of it (readers of these files have a buffer of 1024),
    // cut at the first zero; nothing when the key is absent.
    [[nodiscard]] std::optional<std::string> find(std::string_view section,
                                                  std::string_view cle) const;
    // Sections and their keys in the order of the file.
    [[nodiscard]] const std::vector<std::string>& sections() const { return names_; }
    [[nodiscard]] std::vector<std::string> keys(std::string_view section) const;

  private:
    struct Section {
        std::vector<std::string> order;
        std::unordered_map<std::string, std::string> values;
    };
    std::vector<std::string> names_;
    std::unordered_map<std::string, Section> sections_;
};

// The value of a key in a file, `defaut` without file or key. Reads the file at each call: who
// asks often keeps a Profile.
[[nodiscard]] std::string LireProfil(std::string_view section, std::string_view cle,
                                     std::string_view defaut, const std::filesystem::path& fichier);

}  // namespace quillmark
