#include <gtest/gtest.h>

#include "base/failure.h"
#include "db/transaction.h"
#include "session/row_fields.h"
#include "support/test_program.h"
#include "ui/fields.h"

namespace desk {
namespace {

/// What screens share where no transcript tells of it, over the offices and dictionaries of the other tests.
class SharedPieces : public testing::Test {
  protected:
    SharedPieces() {
        program.openDatabase();
        addOfficesAndDictionaries(program);
    }
    long failureNumber(const std::function<void()>& action) {
        try {
            action();
        } catch (const RuntimeFailure& failure) {
            return failure.number();
        }
        return 0;
    }

    TestProgram program;
};

TEST_F(SharedPieces, ADayThatIsNotStoredLeavesThePickerAsItIs) {
    Screen screen{"试", "", WindowKind::child, 1, 1};
    DatePicker day(screen, "日期");
    RowFields fields;
    fields.add("登记日期", day);
    program.run({"Insert Into YZ_引驻客户信息 (登记编号,管理处代号) Values ('1','01')"});
    Recordset lead(program.db(), "Select * From YZ_引驻客户信息");
    fields.show(lead);
    EXPECT_EQ(day.value(), DateTime(2000, 1, 1));
}

TEST_F(SharedPieces, ATransactionIsWrittenWholeOrNotAtAll) {
    const auto count = [&] { return program.rows("Select * From YZ_区域设置").size(); };
    const auto add = [&](bool committing) {
        Transaction all(program.db());
        program.run({"Insert Into YZ_区域设置 (区域名称) Values ('一')",
                     "Insert Into YZ_区域设置 (区域名称) Values ('二')"});
        if (committing) all.commit();
    };
    add(false);
    EXPECT_EQ(count(), 2U);
    add(true);
    EXPECT_EQ(count(), 4U);
    for (int statement = 1; statement <= 4; ++statement) {  // begin, two rows, commit
        program.fault = {statement, failure::violatedRule};
        EXPECT_EQ(failureNumber([&] { add(true); }), failure::violatedRule);
        EXPECT_EQ(count(), 4U) << statement;
    }
    Transaction outer(program.db());
    EXPECT_EQ(failureNumber([&] { Transaction inner(program.db()); }), failure::unspecified);
}

}  // namespace
}  // namespace desk
