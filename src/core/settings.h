// The per-user settings, as strings under a section and a key.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quillmark {

// A store of settings. Sections and keys are compared without regard to (ASCII) case.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    [[nodiscard]] virtual std::optional<std::string> read(std::string_view section,
                                                          std::string_view key) const = 0;
    virtual void write(std::string_view section, std::string_view key, std::string_view value) = 0;
};

// A store that lives as long as the process: for tests and for the command line.
class MemorySettings : public SettingsStore {
  public:
    [[nodiscard]] std::optional<std::string> read(std::string_view section,
                                                  std::string_view key) const override;
    void write(std::string_view section, std::string_view key, std::string_view value) override;

  private:
    std::map<std::string, std::string> values_;
};

// A boolean in any of the spellings that stores hold (True, Vrai, yes, oui, a number ...).
[[nodiscard]] bool readBoolean(const SettingsStore& store, std::string_view section,
                               std::string_view key, bool defaut);

// What the text form of a document depends on.
struct TextSettings {
    bool FormatPOI = true;         // type and subtype of a point on two lines
    bool EcrireTrueColors = true;  // negation of `MasquerTextePOI`
};
[[nodiscard]] TextSettings readTextSettings(const SettingsStore& store);

}  // namespace quillmark
