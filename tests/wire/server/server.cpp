#include "wire/server/server.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "db/embedded/embedded.h"
#include "wire/server/channel.h"

namespace desk::wire {

namespace {

int listeningSocket() {
    const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
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
std::string textOf(std::string_view batch) {
    ByteReader rest(batch);
    rest.take(ByteReader(batch).number(4));
    return fromUtf16Bytes(rest.rest());
}

}  // namespace

struct Server::Seat {
    explicit Seat(int socket) : channel(socket) {}
    Channel channel;
    std::thread thread{};
};

Server::Server(std::string folder, Behaviour behaviour)
    : folder_(std::move(folder)),
      listener_(listeningSocket()),
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
        auto& seat = *seats_.emplace_back(std::make_unique<Seat>(socket));
        if (ending_) seat.channel.hangUp();
        seat.thread = std::thread([this, &seat] { serve(seat.channel); });
    }
}

std::string Server::pathOf(const std::string& database) const {
    return database == embedded::inMemory ? database : folder_ + "/" + database;
}

void Server::createDatabase(const std::string& name) {
    embedded::createDatabase(pathOf(name));
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
std::vector<Batch> Server::batches() const {
    const std::lock_guard lock(mutex_);
    return batches_;
}
std::vector<Login> Server::logins() const {
    const std::lock_guard lock(mutex_);
    return logins_;
}

void Server::serve(Channel& channel) {
    try {
        const auto name = greet(channel);
        if (!name) return;
        std::shared_ptr<MadeTables> made;
        {
            const std::lock_guard lock(mutex_);
            if (const auto found = empty_.find(*name); found != empty_.end()) made = found->second;
        }
        Connection database;
        database.open("Data Source=(embedded);Initial Catalog='" + pathOf(*name) + "'",
                      std::chrono::seconds(5));
        Dialog dialog(std::move(database), made, behaviour().describing);
        converse(channel, dialog);
    } catch (const std::runtime_error&) {
        // The client is told nothing, and sees that the line has gone.
    }
    channel.hangUp();
}

std::optional<Failure> Server::refusalOf(const Login& login) const {
    const auto mine = behaviour();
    if (login.user != mine.user || login.password != mine.password)
        return Failure{18456, "用户 '" + login.user + "' 登录失败。"};
    const bool there = login.database == embedded::inMemory ||
                       (!login.database.empty() && std::filesystem::exists(pathOf(login.database)));
    if (!there) return Failure{4060, "无法打开登录所请求的数据库 \"" + login.database + "\"。登录失败。"};
    return {};
}

std::optional<std::string> Server::greet(Channel& channel) {
    const auto mine = behaviour();
    if (mine.cutAfter) channel.cutAfter(*mine.cutAfter);
    auto message = channel.receive();
    while (mine.neverGreets) channel.receive();
    if (message.type == Packet::prelogin) {
        channel.send(preloginAnswer(mine.encrypts));
        if (mine.encrypts) channel.encrypt(certificate_);
        message = channel.receive();
    }
    const auto login = readLogin(message.payload);
    {
        const std::lock_guard lock(mutex_);
        logins_.push_back(login);
    }
    Tokens out;
    const auto refusal = refusalOf(login);
    if (refusal) {
        out.failed(*refusal);
    } else {
        out.note(5701, "已将数据库上下文更改为 '" + login.database + "'。");
        out.loginAccepted();
        out.done();
    }
    channel.send(out.finished());
    return refusal ? std::nullopt : std::optional(login.database);
}

void Server::converse(Channel& channel, Dialog& dialog) {
    while (true) {
        const auto message = channel.receive();
        if (message.type == Packet::attention) {
            Tokens out;
            out.attended();
            channel.send(out.finished());
            continue;
        }
        const auto batch = textOf(message.payload);
        {
            const std::lock_guard lock(mutex_);
            batches_.push_back({batch, channel.isEncrypted()});
        }
        reply(channel, batch, dialog);
    }
}

void Server::reply(Channel& channel, const std::string& batch, Dialog& dialog) {
    const auto mine = behaviour();
    const auto fate = mine.fate(batch);
    if (fate == Fate::waitsUntilCalled) return;
    if (fate == Fate::lostBefore) throw LineGone();
    while (fate == Fate::unanswered) channel.receive();
    Tokens out;
    if (const auto failure = mine.failure(batch)) {
        if (failure->number == Failure::lostToAnother) dialog.undo();
        out.failed(*failure);
    } else {
        dialog.answer(batch, out);
    }
    if (fate == Fate::lostAfter) throw LineGone();
    const auto answer = out.finished();
    if (fate == Fate::lostWithin) channel.cutAfter(answer.size() / 2 + 1);
    channel.send(answer);
}

}  // namespace desk::wire
