#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "wire/server/bytes.h"
#include "wire/server/certificate.h"

struct ssl_st;

namespace desk::wire {

enum class Packet : unsigned char { batch = 1, reply = 4, attention = 6, login = 16, prelogin = 18 };

struct Message {
    Packet type;
    std::string payload;
};

/// One line to a client, in messages of packets; in the clear, or encrypted.
class Channel {
  public:
    explicit Channel(int socket) : socket_(socket) {}
    ~Channel();
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;

    /// Waits for the next message. Fails with LineGone.
    Message receive();
    /// Sends a reply; gone is the line in the midst of it where it was to be cut.
    void send(std::string_view payload) { send(Packet::reply, payload); }

    /// From now on the line is cut as soon as so many bytes have been sent.
    void cutAfter(std::size_t bytes) { left_ = bytes; }

    /// Shakes hands inside of prelogin messages; all that follows is encrypted.
    void encrypt(const Certificate& certificate);
    bool isEncrypted() const { return secure_ != nullptr; }

    /// Wakes up whoever waits for a message: there is none any more.
    void hangUp() const;

  private:
    std::string read(std::size_t count);
    void send(Packet type, std::string_view payload);
    void write(std::string_view bytes);

    int socket_;
    std::optional<std::size_t> left_;
    std::string readAhead_;
    std::shared_ptr<ssl_st> secure_;  ///< the server's end of an encrypted line, which knows of no socket
};

}  // namespace desk::wire
