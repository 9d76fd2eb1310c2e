// Registers customers the way a seat does: the highest number, a look whether it is free, and the new row.
// Usage: seat <database file> <name of the seat> <number of rows>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/failure.h"
#include "base/number.h"
#include "db/recordset.h"
#include "db/statement.h"

using namespace desk;

namespace {

std::string numbered(long serial) {
    return "2011-" + formatNumber(static_cast<double>(serial), "000000");
}

void registerOne(Connection& connection, const std::string& seat) {
    long serial = 1;
    {
        Recordset highest(connection,
                          "SELECT MAX(流水号) AS 流水号 From YZ_引驻客户信息 Where 管理处代号='01'");
        if (!highest.atEnd()) serial = highest["流水号"].integer() + 1;
    }
    const auto lookup = [&] {
        return sql("SELECT * From YZ_引驻客户信息 Where 登记编号='{}' AND 管理处代号='{}'", numbered(serial),
                   "01");
    };
    while (anyRow(connection, lookup())) ++serial;
    Recordset lead(connection, lookup(), Rows::updatable);
    lead.addNew();
    lead["登记编号"] = numbered(serial);
    lead["管理处代号"] = "01";
    lead["流水号"] = static_cast<std::int64_t>(serial);
    lead["客源类别"] = "引驻来人";
    lead["业务员"] = seat;
    lead["登记日期"] = "2011-3-5";
    lead.update();
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 4) return 2;
    try {
        Connection connection;
        connection.open("Initial Catalog='" + std::string(arguments[1]) + "';Data Source='(embedded)'",
                        std::chrono::seconds(30));
        for (int left = std::atoi(arguments[3]); left > 0; --left) registerOne(connection, arguments[2]);
        return 0;
    } catch (const RuntimeFailure& failure) {
        std::fprintf(stderr, "%ld %s\n", failure.number(), failure.what());
        return 1;
    }
}
