#include <unistd.h>

#include "db/recordset.h"
#include "wire/server/browser.h"
#include "wire/server_fixture.h"

namespace desk::wire {
namespace {

/// An address of this machine that no other run of the tests has.
std::string ownAddress() {
    const auto process = static_cast<unsigned>(::getpid());
    return "127." + std::to_string(1 + process / 65536 % 250) + "." + std::to_string(process / 256 % 256) +
           "." + std::to_string(process % 256);
}

class Instance : public ServedOffice {};

TEST_F(Instance, IsFoundByTheBrowserOfItsMachine) {
    const Server house(folder, {.encryption = Encryption::on}, ownAddress());
    const Browser browser(ownAddress(), "HOUSE", house.port());
    Connection office;
    office.open("User ID=sa;Password=Secret;Initial Catalog=office;Data Source='" + ownAddress() + "\\HOUSE'",
                std::chrono::seconds(5));
    EXPECT_EQ(Recordset(office, "Select '密' As a")[0].text(), "密");
    EXPECT_EQ(browser.asked(), std::vector<std::string>{"HOUSE"});
    EXPECT_EQ(house.encryptedBatches(), 2);
}

}  // namespace
}  // namespace desk::wire
