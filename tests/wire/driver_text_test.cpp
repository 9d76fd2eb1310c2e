#include "db/odbc/driver_text.h"

#include <gtest/gtest.h>

#include "db/odbc/odbc_failure.h"
#include "support/failures.h"

namespace desk::odbc {
namespace {

TEST(ServerAddress, IsAHostAPortOrAnInstance) {
    const auto read = [](const std::string& source) {
        const auto address = serverAddress(source);
        return address.host + "|" + address.instance + "|" + std::to_string(address.port);
    };
    EXPECT_EQ(read("db.office"), "db.office||1433");
    EXPECT_EQ(read(" 10.0.0.5 , 1500 "), "10.0.0.5||1500");
    EXPECT_EQ(read("tcp:db,1500"), "db||1500");
    EXPECT_EQ(read("DB\\SQL2008"), "DB|SQL2008|1433");
    EXPECT_EQ(read("DB\\SQL2008,1500"), "DB||1500");
    EXPECT_EQ(read("(local)"), "localhost||1433");
    EXPECT_EQ(read(".\\EXPRESS"), "localhost|EXPRESS|1433");
    for (const auto* wrong : {"db,", "db,x", "db,0", "db,65536", "db,1x", "db\\", ",1433", "\\x", "a;b",
                              "a\nb", "a{b", "db\\x;y"})
        EXPECT_EQ(desk::failureOf([&] { serverAddress(wrong); }), failure::unspecified) << wrong;
}

TEST(DriverText, TellsAllToTheUsualDriver) {
    const ConnectionTarget target{"db,1500", "office", "sa", "a}b"};
    EXPECT_EQ(driverText(target, {}, Encryption::required),
              "Driver={FreeTDS};Server=db;Port=1500;Database={office};UID={sa};PWD={a}b};ClientCharset=UTF-8;"
              "TDS_Version=7.3;Encryption=require;");
    EXPECT_EQ(driverText(target, {}, Encryption::wherePossible, "section"),
              "Driver={FreeTDS};Servername=section;Database={office};UID={sa};PWD={a}b};ClientCharset=UTF-8;"
              "TDS_Version=7.3;Encryption=request;");
    EXPECT_NE(driverText({"db\\x", "", "", ""}, {}, Encryption::required).find("Server=db\\x;Database={};"),
              std::string::npos);
    for (const auto& secret : {std::string("a};b"), std::string("a\0b", 3)})
        EXPECT_EQ(desk::failureOf([&] {
                      driverText({"db", "", "", secret}, {}, Encryption::required);
                  }),
                  failure::unspecified);
}

TEST(DriverText, SpeaksToOtherDriversByTheRule) {
    EXPECT_EQ(driverText({"db,1500", "office", "sa", "a};b"}, {.driver = "Other"}, Encryption::required),
              "Driver={Other};Server=db,1500;Database={office};UID={sa};PWD={a}};b};Encrypt=yes;"
              "TrustServerCertificate=yes;");
    const DriverSettings trusting{.driver = "Other", .certificates = "/own.pem"};
    EXPECT_TRUE(driverText({"db", "", "", ""}, trusting, Encryption::required)
                    .ends_with("Encrypt=yes;TrustServerCertificate=no;ServerCertificate={/own.pem};"));
    EXPECT_TRUE(driverText({"db", "", "", ""}, trusting, Encryption::wherePossible).ends_with("Encrypt=no;"));
}

/// A note that stands ahead of a failure is not its cause, and a lost line is, wherever it stands.
TEST(Diagnoses, TheCauseIsTheFirstFailureOrTheLostLine) {
    const Diagnosis note{"01000", 5701, "已将数据库上下文更改为 'office'。"};
    const Diagnosis wrong{"42S02", 208, "对象名无效。"};
    const Diagnosis lost{"01000", 20006, "Write to the server failed"};
    EXPECT_EQ(causeOf({note, wrong, lost}).number, wrong.number);
    EXPECT_EQ(causeOf({note, lost, wrong}).number, lost.number);
    EXPECT_EQ(causeOf({note}).number, note.number);
    EXPECT_FALSE(causeOf({}).text.empty());
}

}  // namespace
}  // namespace desk::odbc
