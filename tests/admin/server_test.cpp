#include "wire/server/server.h"

#include "admin_fixture.h"

namespace desk {
namespace {

/// The tool on a database of a server, which is in the tool's folder.
class AdminOnAServer : public Admin {
  protected:
    std::string database(const std::string& name) const {
        return " --server " + server.dataSource() + " --database " + name + " --user sa --password Secret";
    }
    Outcome checked(const std::string& settings) {
        EXPECT_EQ(run("settings --folder config" + settings).code, 0);
        return run("check --folder config");
    }

    wire::Server server{folder.string()};
};

/// A change to a column that a server describes, and what is told of it.
struct OtherColumn {
    const char* name;
    wire::DescribedColumn as;
    const char* told;
    bool harmful = true;
    std::string table = "YZ_引驻客户信息";
};

TEST_F(AdminOnAServer, TellsWhichKindsOfColumnsDoHarm) {
    const std::vector<OtherColumn> others = {
        {"公司名称", {"", "nvarchar", 100}, "（nvarchar(50)）较长的内容会被拒绝，应有 200 个字"},
        {"客户姓名", {"", "nvarchar", 800}, "（nvarchar(400)）比需要的长", false},
        {"职位", {"", "nvarchar", -1}, "（nvarchar(max)）比需要的长", false},
        {"传真", {"", "varchar", 400}, "（varchar(400)）不能保存所有的汉字"},
        {"推荐楼层", {"", "nchar", 400}, "（nchar(200)）会在内容后面补空格"},
        {"客户电话", {"", "bigint", 8, 19}, "不能保存文本"},
        {"备注", {"", "nvarchar", 8000}, "（nvarchar(4000)）较长的内容会被拒绝，应不限长度"},
        {"媒体", {"", "ntext", 16}, "不能用来比较和排序"},
        {"需求面积", {"", "nvarchar", 400}, "不能保存数"},
        {"预算租金", {"", "decimal", 9, 18, 2}, "（decimal(18,2)）小数只有 2 位，其余会丢失"},
        {"流水号", {"", "smallint", 2, 5}, "（smallint）放不下较大的数"},
        {"登记日期", {"", "smalldatetime", 4}, "放得下需要的日期", false},
        {"分配日期", {"", "nvarchar", 40}, "不能保存日期"},
        {"ID", {"", "int", 4, 10, 0, false}, "没有自动编号"},
        {"业务员", {"", "nvarchar", 400, 0, 0, false}, "不能为空，留空的内容会被拒绝"},
        {"所在区域", {"", "nvarchar", 400, 0, 0, false, false, false, true}, "由服务器填入缺省值", false},
        {"企业性质", {"", "nvarchar", 400, 0, 0, true, false, true}, "由服务器计算，本程序不能写入"},
        {"金额", {"", "smallmoney", 4, 10, 4}, "放不下较大的数", true, "YZ_意向金收款"},
        {"单价", {"", "float", 8, 53}, "按浮点数保存", false, "YZ_意向金收款"},
        {"退款金额", {"", "real", 4, 24}, "有效数字不够", true, "YZ_意向金收款"},
        {"处理结束", {"", "tinyint", 1, 3}, "放得下需要的数", false, "YZ_意向金收款"},
        {"收款日期", {"", "smalldatetime", 4}, "不保存秒", true, "YZ_意向金收款"},
        {"提交日期", {"", "date", 3}, "不保存时刻", true, "YZ_意向书信息"},
        {"流转结束日期", {"", "datetime2", 8}, "放得下需要的时间", false, "YZ_意向书信息"},
        {"意向书ID", {"", "int", 4, 10}, "应总是与列 ID 相同", true, "YZ_意向书信息"},
        {"报销单明细ID", {"", "int", 4, 10, 0, true, true}, "由服务器自动编号", true, "报销附件"},
    };
    const auto describing = [&](bool harmToo) {
        return [&others, harmToo](std::string_view table, std::vector<wire::DescribedColumn>& columns) {
            for (auto& column : columns)
                for (const auto& other : others) {
                    if (table != other.table || column.name != other.name || (other.harmful && !harmToo))
                        continue;
                    column = other.as;
                    column.name = other.name;
                }
            if (table == "楼表") columns.clear();
            if (table != "报销附件") return;
            columns.push_back({"别的", "timestamp", 8, 0, 0, false});
            if (harmToo) columns.push_back({"多出", "int", 4, 10, 0, false});
        };
    };
    server.createDatabase("office");
    server.behave({.describing = describing(true)});
    const Outcome bad = checked(database("office"));
    EXPECT_EQ(bad.code, 1);
    long harmful = 1;
    for (const auto& other : others) {
        harmful += other.harmful ? 1 : 0;
        const auto line = std::string(other.harmful ? "须改正" : "不妨碍") + "：表 " + other.table +
                          " 的列 " + other.name + "（";
        const auto at = bad.output.find(line);
        ASSERT_NE(at, std::string::npos) << line << "\n" << bad.output;
        const auto told = bad.output.substr(at, bad.output.find('\n', at) - at);
        EXPECT_NE(told.find(other.told), std::string::npos) << told;
    }
    EXPECT_TRUE(bad.tells("多出（int）本程序没有这一列，它又不能为空"));
    EXPECT_TRUE(bad.tells("不妨碍：表 楼表 的列不能查看")) << bad.output;
    EXPECT_TRUE(bad.tells(std::to_string(harmful) + " 处不符")) << bad.output;

    server.behave({.describing = describing(false)});
    const Outcome good = checked(database("office"));
    EXPECT_EQ(good.code, 0) << good.output;
    EXPECT_TRUE(good.tells("不妨碍：") && good.tells("可以使用")) << good.output;
}

}  // namespace
}  // namespace desk
