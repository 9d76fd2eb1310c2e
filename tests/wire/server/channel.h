#pragma once

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "wire/server/secure_layer.h"

namespace desk::wire {

/// The line has gone: the client hung up, or the server was told to.
class LineGone : public std::runtime_error {
  public:
    LineGone() : std::runtime_error("the line has gone") {}
};

enum class Packet : unsigned char {
    batch = 1,
    reply = 4,
    attention = 6,
    login = 16,
    prelogin = 18,
};

struct Message {
    Packet type;
    std::string payload;
};

/// One line to a client, in messages of packets; in the clear, or through a secure layer.
class Channel {
  public:
    explicit Channel(int socket) : socket_(socket) {}
    ~Channel();
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;

    /// Waits for the next message. Fails with LineGone.
    Message receive();
    /// Sends a message; gone is the line in the midst of it where it was to be cut.
    void send(Packet type, std::string_view payload);

    /// From now on the line is cut as soon as so many bytes have been sent.
    void cutAfter(std::size_t bytes) { left_ = bytes; }
    static constexpr std::size_t packetSize = 4096;

    /// Shakes hands inside of prelogin messages; all that follows is encrypted.
    void encrypt(const Certificate& certificate);
    /// All that follows is in the clear again.
    void endEncryption();
    bool isEncrypted() const { return secure_ != nullptr; }

    /// Wakes up whoever waits for a message: there is none any more.
    void hangUp() const;

  private:
    std::string read(std::size_t count);
    std::string readSome() const;
    void write(std::string_view bytes);
    void writeRaw(std::string_view bytes);

    int socket_;
    std::optional<std::size_t> left_;
    std::string readAhead_;
    std::unique_ptr<SecureLayer> secure_;
};

}  // namespace desk::wire
