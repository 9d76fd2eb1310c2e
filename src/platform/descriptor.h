#pragma once

#include <string_view>
#include <utility>

namespace desk {

/// Owns an open file descriptor of the system, and closes it.
class Descriptor {
  public:
    explicit Descriptor(int number = -1) : number_(number) {}
    ~Descriptor() { close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }

    /// Writes all of `bytes`; false when the system refuses any of them.
    bool writeAll(std::string_view bytes);
    /// False when the system reports only now that an earlier write was lost.
    bool close();

  private:
    int number_;
};

}  // namespace desk
