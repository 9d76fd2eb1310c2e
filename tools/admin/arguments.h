#pragma once

#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace desk::admin {

/// The command line was not understood; what() says why, in the user's language.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The words behind a command: plain ones, and options of the form "--name value" or "--name=value".
class Arguments {
  public:
    /// Fails with UsageError when an option is none of `known`, has no value or comes twice, or when there
    /// are not exactly `plainCount` plain words; `plainNames` tells the user what they should be.
    Arguments(const std::vector<std::string>& words, const std::vector<std::string>& known,
              std::size_t plainCount, std::string_view plainNames);

    const std::string& plain(std::size_t place) const { return plain_.at(place); }
    bool hasOptions() const { return !options_.empty(); }
    std::optional<std::string> option(const std::string& name) const;
    std::string option(const std::string& name, std::string_view fallback) const;
    /// Fails with UsageError when the value is no whole number from `least` to `most`.
    long number(const std::string& name, long fallback, long least, long most) const;

  private:
    std::vector<std::string> plain_;
    std::map<std::string, std::string> options_;
};

}  // namespace desk::admin
