// The settings in the platform's per-user store.
#pragma once

#include <QSettings>
#include <memory>

#include "core/settings.h"

namespace quillmark {

// The platform's own: the registry, or a file in the user's folder of configurations.
[[nodiscard]] std::unique_ptr<QSettings> platformSettings();
// A file of sections and "key=value" lines in UTF-8, which people can read and mend.
[[nodiscard]] std::unique_ptr<QSettings> fileSettings(const QString& file);

// A read takes the exact spelling first and then any other case; a write leaves one spelling.
// What can't be stored is kept for the life of the process, and told to nobody.
class QtSettingsStore : public SettingsStore {
  public:
    explicit QtSettingsStore(std::unique_ptr<QSettings> settings);
    ~QtSettingsStore() override;

    [[nodiscard]] std::optional<std::string> read(std::string_view section,
                                                  std::string_view key) const override;
    void write(std::string_view section, std::string_view key, std::string_view value) override;

  private:
    std::unique_ptr<QSettings> settings_;
};

}  // namespace quillmark
