#include "wire/server/browser.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <system_error>
#include <utility>

#include "wire/server/bytes.h"

namespace desk::wire {

namespace {

constexpr char question = 4;
constexpr char reply = 5;

int listeningSocket(const std::string& address) {
    constexpr int browserPort = 1434;
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_port = htons(browserPort);
    place.sin_addr.s_addr = ::inet_addr(address.c_str());
    if (::bind(socket, reinterpret_cast<sockaddr*>(&place), sizeof place) == 0) return socket;
    const int error = errno;
    ::close(socket);
    throw std::system_error(error, std::generic_category(), "the browser cannot listen");
}

std::string answerOf(const std::string& instance, int port) {
    const std::string told = "ServerName;STAND-IN;InstanceName;" + instance +
                             ";IsClustered;No;Version;10.50.1600.1;tcp;" + std::to_string(port) + ";;";
    ByteWriter out;
    out.byte(reply);
    out.number(told.size(), 2);
    return out.bytes + told;
}

}  // namespace

Browser::Browser(const std::string& address, std::string instance, int port)
    : instance_(std::move(instance)),
      socket_(listeningSocket(address)),
      listening_([this, answer = answerOf(instance_, port)] { listen(answer); }) {}

Browser::~Browser() {
    ::shutdown(socket_, SHUT_RDWR);
    listening_.join();
    ::close(socket_);
}

std::vector<std::string> Browser::asked() const {
    const std::lock_guard lock(mutex_);
    return asked_;
}

void Browser::listen(const std::string& answer) {
    while (true) {
        std::array<char, 64> got{};
        sockaddr_in from{};
        socklen_t size = sizeof from;
        const auto count =
            ::recvfrom(socket_, got.data(), got.size() - 1, 0, reinterpret_cast<sockaddr*>(&from), &size);
        // An end of the socket is told as an empty message.
        if (count <= 0) return;
        if (got.front() != question) continue;
        const std::string name = got.data() + 1;
        {
            const std::lock_guard lock(mutex_);
            asked_.push_back(name);
        }
        if (name == instance_)
            ::sendto(socket_, answer.data(), answer.size(), 0, reinterpret_cast<sockaddr*>(&from), size);
    }
}

}  // namespace desk::wire
