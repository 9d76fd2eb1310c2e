#include "wire/server/channel.h"

#include <openssl/bio.h>
#include <openssl/ssl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>

namespace desk::wire {

namespace {

constexpr std::size_t packetSize = 4096;
constexpr std::size_t headerSize = 8;
constexpr unsigned char lastOfMessage = 1;

void hand(SSL* secure, std::string_view received) {
    BIO_write(SSL_get_rbio(secure), received.data(), static_cast<int>(received.size()));
}

/// What is to be sent to the client.
std::string takenFrom(SSL* secure) {
    BIO* bio = SSL_get_wbio(secure);
    std::string bytes(BIO_ctrl_pending(bio), '\0');
    if (!bytes.empty()) BIO_read(bio, bytes.data(), static_cast<int>(bytes.size()));
    return bytes;
}

/// What `received` says, which may be less than a whole record.
std::string opened(SSL* secure, std::string_view received) {
    hand(secure, received);
    std::string bytes;
    std::array<char, 4096> part;
    for (int count = 0; (count = SSL_read(secure, part.data(), part.size())) > 0;)
        bytes.append(part.data(), static_cast<std::size_t>(count));
    return bytes;
}

}  // namespace

Channel::~Channel() {
    ::close(socket_);
}

void Channel::hangUp() const {
    ::shutdown(socket_, SHUT_RDWR);
}

std::string Channel::read(std::size_t count) {
    std::array<char, 16384> part;
    while (readAhead_.size() < count) {
        const auto size = ::recv(socket_, part.data(), part.size(), 0);
        if (size <= 0) throw LineGone();
        const std::string_view received(part.data(), static_cast<std::size_t>(size));
        readAhead_ += secure_ ? opened(secure_.get(), received) : received;
    }
    auto taken = readAhead_.substr(0, count);
    readAhead_.erase(0, count);
    return taken;
}

void Channel::write(std::string_view bytes) {
    std::string sealed;
    if (secure_) {
        SSL_write(secure_.get(), bytes.data(), static_cast<int>(bytes.size()));
        bytes = sealed = takenFrom(secure_.get());
    }
    const bool cut = left_ && *left_ <= bytes.size();
    if (cut) bytes = bytes.substr(0, *left_);
    if (left_) *left_ -= bytes.size();
    while (!bytes.empty()) {
        const auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) throw LineGone();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (cut) throw LineGone();
}

Message Channel::receive() {
    Message message{};
    while (true) {
        const auto header = read(headerSize);
        message.type = static_cast<Packet>(header[0]);
        const auto length =
            static_cast<unsigned char>(header[2]) << 8 | static_cast<unsigned char>(header[3]);
        message.payload += read(static_cast<std::size_t>(length) - headerSize);
        if ((static_cast<unsigned char>(header[1]) & lastOfMessage) != 0) return message;
    }
}

void Channel::send(Packet type, std::string_view payload) {
    unsigned char number = 0;
    do {
        const auto part = payload.substr(0, packetSize - headerSize);
        payload.remove_prefix(part.size());
        ByteWriter packet;
        packet.byte(static_cast<unsigned char>(type));
        packet.byte(payload.empty() ? lastOfMessage : 0);
        packet.bigEndian(part.size() + headerSize, 2);
        packet.bigEndian(0, 2);
        packet.byte(++number);
        packet.byte(0);
        packet.bytes += part;
        write(packet.bytes);
    } while (!payload.empty());
}

void Channel::encrypt(const Certificate& certificate) {
    std::shared_ptr<SSL> secure(SSL_new(certificate.context()), SSL_free);
    SSL_set_bio(secure.get(), BIO_new(BIO_s_mem()), BIO_new(BIO_s_mem()));
    SSL_set_accept_state(secure.get());
    bool agreed = false;
    while (!agreed) {
        hand(secure.get(), receive().payload);
        agreed = SSL_do_handshake(secure.get()) == 1;
        if (const auto answer = takenFrom(secure.get()); !answer.empty()) send(Packet::prelogin, answer);
    }
    secure_ = std::move(secure);
}

}  // namespace desk::wire
