#pragma once

#include <string>
#include <string_view>

namespace desk {

/// The few things that the program does with files.
class Files {
  public:
    virtual ~Files() = default;
    /// The program's own folder, without a slash at the end.
    virtual std::string programDirectory() const = 0;
    virtual bool exists(std::string_view path) const = 0;
    /// Creates or empties the file and writes `bytes`. Fails with 75 when it cannot be written.
    virtual void write(std::string_view path, std::string_view bytes) = 0;
};

/// The machine's own files. The program's folder is that of the executable, or TENANT_DESK_HOME where that is
/// set.
class SystemFiles : public Files {
  public:
    /// Where the executable of this process lies, without a slash at the end.
    static std::string executableDirectory();

    std::string programDirectory() const override;
    bool exists(std::string_view path) const override;
    void write(std::string_view path, std::string_view bytes) override;
};

}  // namespace desk
