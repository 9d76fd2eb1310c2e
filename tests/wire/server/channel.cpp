#include "wire/server/channel.h"

#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>

#include "wire/server/bytes.h"

namespace desk::wire {

namespace {
constexpr std::size_t headerSize = 8;
constexpr unsigned char lastOfMessage = 1;
}  // namespace

Channel::~Channel() {
    ::close(socket_);
}

void Channel::hangUp() const {
    ::shutdown(socket_, SHUT_RDWR);
}

std::string Channel::readSome() const {
    std::string bytes(16384, '\0');
    const auto count = ::recv(socket_, bytes.data(), bytes.size(), 0);
    if (count <= 0) throw LineGone();
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

std::string Channel::read(std::size_t count) {
    while (readAhead_.size() < count) readAhead_ += secure_ ? secure_->opened(readSome()) : readSome();
    auto taken = readAhead_.substr(0, count);
    readAhead_.erase(0, count);
    return taken;
}

void Channel::writeRaw(std::string_view bytes) {
    const bool cut = left_ && *left_ <= bytes.size();
    if (cut) bytes = bytes.substr(0, *left_);
    if (left_) *left_ -= bytes.size();
    while (!bytes.empty()) {
        const auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0) throw LineGone();
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    if (!cut) return;
    hangUp();
    throw LineGone();
}

void Channel::write(std::string_view bytes) {
    if (secure_)
        writeRaw(secure_->sealed(bytes));
    else
        writeRaw(bytes);
}

Message Channel::receive() {
    Message message{};
    while (true) {
        const auto header = read(headerSize);
        ByteReader fields(header);
        message.type = static_cast<Packet>(fields.number(1));
        const auto status = fields.number(1);
        const auto length = fields.bigEndian(2);
        if (length < headerSize) throw Malformed("a packet shorter than its header");
        message.payload += read(length - headerSize);
        if ((status & lastOfMessage) != 0) return message;
    }
}

void Channel::send(Packet type, std::string_view payload) {
    const std::size_t room = packetSize - headerSize;
    unsigned char number = 0;
    do {
        const auto part = payload.substr(0, room);
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
    auto layer = std::make_unique<SecureLayer>(certificate);
    while (!layer->shakeHands(receive().payload))
        if (const auto answer = layer->takeHandshake(); !answer.empty()) send(Packet::prelogin, answer);
    if (const auto answer = layer->takeHandshake(); !answer.empty()) send(Packet::prelogin, answer);
    secure_ = std::move(layer);
}

void Channel::endEncryption() {
    secure_.reset();
}

}  // namespace desk::wire
