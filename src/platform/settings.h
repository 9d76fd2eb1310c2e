#pragma once

#include <string>
#include <string_view>

namespace desk {

/// The per-user settings store, addressed by application, section and key.
class SettingsStore {
  public:
    virtual ~SettingsStore() = default;
    /// `fallback` when the key is absent.
    virtual std::string read(std::string_view application, std::string_view section, std::string_view key,
                             std::string_view fallback) const = 0;
};

/// Settings in "{folder}/{application}.ini", UTF-8, sections in brackets, one "key=value" a line, the value
/// as it stands behind the sign.
class IniSettings : public SettingsStore {
  public:
    explicit IniSettings(std::string folder) : folder_(std::move(folder)) {}

    /// The user's configuration folder: $XDG_CONFIG_HOME, or .config in the home folder.
    static std::string userFolder();

    /// An unreadable file has no keys.
    std::string read(std::string_view application, std::string_view section, std::string_view key,
                     std::string_view fallback) const override;
    /// Writes the key, keeping all else in the file. Fails with 75 when the folder or file cannot be written.
    void write(std::string_view application, std::string_view section, std::string_view key,
               std::string_view value);

  private:
    std::string file(std::string_view application) const;

    std::string folder_;
};

}  // namespace desk
