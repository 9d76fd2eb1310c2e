#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <thread>

#include "db/recordset.h"
#include "wire/server_fixture.h"

namespace desk::wire {
namespace {

/// An address of this machine that no other run of the tests has.
std::string ownAddress() {
    const auto process = static_cast<unsigned>(::getpid());
    return "127." + std::to_string(1 + process / 65536 % 250) + "." + std::to_string(process / 256 % 256) +
           "." + std::to_string(process % 256);
}

/// The service of a machine with several servers that tells which port one of them has; it is asked once.
class Browser {
  public:
    Browser(const std::string& address, int port) : socket_(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in place{};
        place.sin_family = AF_INET;
        place.sin_port = htons(1434);
        place.sin_addr.s_addr = ::inet_addr(address.c_str());
        EXPECT_EQ(::bind(socket_, reinterpret_cast<sockaddr*>(&place), sizeof place), 0);
        answering_ = std::thread([this, port] { answer(port); });
    }
    ~Browser() {
        ::shutdown(socket_, SHUT_RDWR);
        answering_.join();
        ::close(socket_);
    }
    Browser(const Browser&) = delete;
    Browser& operator=(const Browser&) = delete;

  private:
    void answer(int port) const {
        std::array<char, 64> asked{};
        sockaddr_in from{};
        socklen_t size = sizeof from;
        ::recvfrom(socket_, asked.data(), asked.size() - 1, 0, reinterpret_cast<sockaddr*>(&from), &size);
        if (std::string_view(asked.data()) != "\4HOUSE") return;
        ByteWriter out;
        const auto told = "ServerName;STAND-IN;InstanceName;HOUSE;IsClustered;No;Version;10.50.1600.1;tcp;" +
                          std::to_string(port) + ";;";
        out.byte(5);
        out.number(told.size(), 2);
        out.bytes += told;
        ::sendto(socket_, out.bytes.data(), out.bytes.size(), 0, reinterpret_cast<sockaddr*>(&from), size);
    }

    int socket_;
    std::thread answering_;
};

class Instance : public ServedOffice {};

TEST_F(Instance, IsFoundByTheBrowserOfItsMachine) {
    const Server house(folder, {.encrypts = true}, ownAddress());
    const Browser browser(ownAddress(), house.port());
    Connection office;
    office.open("User ID=sa;Password=Secret;Initial Catalog=office;Data Source='" + ownAddress() + "\\HOUSE'",
                std::chrono::seconds(5));
    EXPECT_EQ(Recordset(office, "Select '密' As a")[0].text(), "密");
    EXPECT_TRUE(house.batches().back().encrypted);
}

}  // namespace
}  // namespace desk::wire
