#include "wire/server/server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "db/embedded/embedded.h"
#include "wire/server/channel.h"

namespace desk::wire {

namespace {

constexpr std::uint32_t version72 = 0x72090002;
constexpr std::chrono::seconds patience{5};

int listeningSocket(const std::string& at) {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::inet_addr(at.c_str());
    if (socket < 0 || ::bind(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(socket, 64) != 0)
        throw std::system_error(errno, std::generic_category(), "the server cannot listen");
    return socket;
}

int portOf(int socket) {
    sockaddr_in address{};
    socklen_t size = sizeof address;
    ::getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

/// The text of a batch behind what a client says of its transaction first.
std::string_view withoutHeaders(std::string_view payload) {
    const auto length = ByteReader(payload).number(4);
    if (length > payload.size()) throw Malformed("headers longer than the batch");
    return payload.substr(length);
}

}  // namespace

struct Server::Seat {
    explicit Seat(int socket) : channel(socket) {}
    Channel channel;
    std::string database{};
    std::thread thread{};
};

Server::Server(std::string folder, Behaviour behaviour, std::string address)
    : folder_(std::move(folder)),
      address_(std::move(address)),
      listener_(listeningSocket(address_)),
      port_(portOf(listener_)),
      behaviour_(std::move(behaviour)),
      listening_([this] { listen(); }) {}

Server::~Server() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
        for (const auto& seat : seats_) seat->channel.hangUp();
    }
    ::shutdown(listener_, SHUT_RDWR);
    listening_.join();
    ::close(listener_);
    for (const auto& seat : seats_) seat->thread.join();
}

void Server::listen() {
    while (true) {
        const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        // A client that has gone before it was served is no end.
        if (socket < 0 && (errno == ECONNABORTED || errno == EINTR)) continue;
        if (socket < 0) return;
        const int yes = 1;
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
        const std::lock_guard lock(mutex_);
        seats_.push_back(std::make_unique<Seat>(socket));
        if (ending_) seats_.back()->channel.hangUp();
        seats_.back()->thread = std::thread([this, seat = seats_.back().get()] { serve(*seat); });
    }
}

void Server::createDatabase(const std::string& name) {
    embedded::createDatabase(folder_ + "/" + name);
}

void Server::createEmpty(const std::string& name) {
    createDatabase(name);
    const std::lock_guard lock(mutex_);
    empty_[name] = std::make_shared<MadeTables>();
}

void Server::behave(Behaviour behaviour) {
    const std::lock_guard lock(mutex_);
    behaviour_ = std::move(behaviour);
}
Behaviour Server::behaviour() const {
    const std::lock_guard lock(mutex_);
    return behaviour_;
}
std::vector<std::string> Server::batches() const {
    const std::lock_guard lock(mutex_);
    return batches_;
}
std::vector<Login> Server::logins() const {
    const std::lock_guard lock(mutex_);
    return logins_;
}
int Server::encryptedBatches() const {
    const std::lock_guard lock(mutex_);
    return encryptedBatches_;
}
int Server::calledOff() const {
    const std::lock_guard lock(mutex_);
    return calledOff_;
}

Connection Server::databaseNamed(const std::string& name) const {
    const auto path = name == embedded::inMemory ? name : folder_ + "/" + name;
    Connection connection;
    connection.open("Data Source=(embedded);Initial Catalog='" + path + "'", patience);
    return connection;
}

void Server::serve(Seat& seat) {
    try {
        if (!greet(seat)) return;
        std::shared_ptr<MadeTables> made;
        {
            const std::lock_guard lock(mutex_);
            if (const auto found = empty_.find(seat.database); found != empty_.end()) made = found->second;
        }
        Dialog dialog(databaseNamed(seat.database), made, behaviour().describing);
        converse(seat, dialog);
    } catch (const std::runtime_error&) {
        // The client is told nothing, and sees that the line has gone.
    }
    seat.channel.hangUp();
}

/// Everything up to the answer to the login; whether it was accepted.
bool Server::greet(Seat& seat) {
    auto& channel = seat.channel;
    const auto mine = behaviour();
    if (mine.cutAfter) channel.cutAfter(*mine.cutAfter);
    auto message = channel.receive();
    if (mine.neverGreets) {
        while (true) channel.receive();
    }
    auto agreed = Encryption::notSupported;
    if (message.type == Packet::prelogin) {
        const auto wanted = readPrelogin(message.payload);
        agreed = mine.encryption == Encryption::notSupported ? mine.encryption
                 : wanted == Encryption::on                  ? Encryption::on
                                                             : mine.encryption;
        channel.send(Packet::reply, preloginAnswer(agreed));
        if (agreed != Encryption::notSupported) channel.encrypt(certificate_);
        message = channel.receive();
    }
    const auto login = readLogin(message.payload);
    {
        const std::lock_guard lock(mutex_);
        logins_.push_back(login);
    }
    if (agreed == Encryption::forLogin) channel.endEncryption();
    Tokens out;
    const bool known = login.user == mine.user && login.password == mine.password;
    const bool there = login.database == embedded::inMemory ||
                       (!login.database.empty() && std::filesystem::exists(folder_ + "/" + login.database));
    std::optional<Failure> refusal = mine.refusesLogin;
    if (!refusal && !known) refusal = Failure{18456, "用户 '" + login.user + "' 登录失败。", 14};
    if (!refusal && !there)
        refusal = Failure{4060, "无法打开登录所请求的数据库 \"" + login.database + "\"。登录失败。", 11};
    if (refusal) {
        out.failure(*refusal);
        out.done(std::nullopt, false, true);
    } else {
        out.changed(1, login.database, "master");
        out.note(5701, "已将数据库上下文更改为 '" + login.database + "'。");
        out.changedCollation();
        out.loginAccepted(std::min(mine.version, std::max(login.version, version72)));
        out.changed(4, std::to_string(Channel::packetSize), "4096");
        out.done(std::nullopt);
    }
    channel.send(Packet::reply, out.finished());
    seat.database = login.database;
    return !refusal;
}

void Server::converse(Seat& seat, Dialog& dialog) {
    auto& channel = seat.channel;
    while (true) {
        const auto message = channel.receive();
        if (message.type == Packet::attention) {
            {
                const std::lock_guard lock(mutex_);
                ++calledOff_;
            }
            Tokens out;
            out.attended();
            channel.send(Packet::reply, out.finished());
        } else if (message.type == Packet::batch) {
            const auto text = withoutHeaders(message.payload);
            {
                const std::lock_guard lock(mutex_);
                batches_.emplace_back(text);
                encryptedBatches_ += channel.isEncrypted() ? 1 : 0;
            }
            reply(channel, fromUtf16Bytes(text), dialog);
        } else {
            throw Malformed("a message that is no batch");
        }
    }
}

void Server::reply(Channel& channel, std::string_view batch, Dialog& dialog) {
    const auto mine = behaviour();
    const auto fate = mine.fate(batch);
    if (fate == Fate::waitsUntilCalled) return;
    if (fate == Fate::lostBefore) throw LineGone();
    while (fate == Fate::unanswered) channel.receive();
    Tokens out;
    if (const auto failure = mine.failure(batch)) {
        out.failure(*failure);
        if (failure->number == Failure::lostToAnother) dialog.undo(out);
        out.done(std::nullopt, false, true);
    } else {
        dialog.answer(batch, out);
    }
    if (fate == Fate::lostAfter) throw LineGone();
    const auto answer = out.finished();
    if (fate == Fate::lostWithin) channel.cutAfter(answer.size() / 2 + 1);
    channel.send(Packet::reply, answer);
}

}  // namespace desk::wire
