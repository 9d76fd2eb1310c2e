#include "customers/registration_rules.h"

#include "db/statement.h"

namespace desk {

const 登记页规则 来人规则{
    .客源类别 = "引驻来人",
    .标题 = "引驻来人登记",
    .根键 = "R",
    .根文本 = "来人登记",
    .键前缀 = "RM",
    .有媒体 = true,
    .有客户详情 = true,
    .有中介公司 = false,
    .无公司显示客户 = true,
    .未知区域入其它 = false,
    .其它询问勾选 = false,
    .自动编号亦查编号 = true,
    .公司为空不写公司 = false,
    .自动编号看区域 = false,
    .树语句 =
        [](std::string_view code) {
            return sql(
                "Select * From YZ_引驻客户信息 Where 客源类别='引驻来人' and 管理处代号='{}' Order By "
                "Len(登记编号),登记编号",
                code);
        },
    .查询语句 =
        [](std::string_view no, std::string_view code) {
            return sql("Select * From YZ_引驻客户信息  Where 登记编号='{}' AND 管理处代号='{}'", no, code);
        },
    .同名语句 =
        [](std::string_view company, std::string_view code) {
            return sql("Select * From  YZ_引驻客户信息 Where 公司名称='{}' and 管理处代号='{}'", company,
                       code);
        },
};

const 登记页规则 来电规则{
    .客源类别 = "引驻来电",
    .标题 = "引驻来电登记",
    .根键 = "D",
    .根文本 = "来电登记",
    .键前缀 = "DM",
    .有媒体 = true,
    .有客户详情 = false,
    .有中介公司 = false,
    .无公司显示客户 = true,
    .未知区域入其它 = true,
    .其它询问勾选 = true,
    .自动编号亦查编号 = true,
    .公司为空不写公司 = true,
    .自动编号看区域 = false,
    .树语句 =
        [](std::string_view code) {
            return sql(
                "Select * From YZ_引驻客户信息 Where 客源类别='引驻来电' and 管理处代号='{}'  Order By "
                "Len(登记编号),登记编号",
                code);
        },
    .查询语句 =
        [](std::string_view no, std::string_view code) {
            return sql("Select * From YZ_引驻客户信息  Where 登记编号='{}' and 管理处代号='{}'", no, code);
        },
    .同名语句 =
        [](std::string_view company, std::string_view code) {
            return sql("Select * From  YZ_引驻客户信息 Where 公司名称='{}'AND 管理处代号='{}'", company,
                       code);
        },
};

const 登记页规则 中介规则{
    .客源类别 = "中介来人",
    .标题 = "中介来人登记",
    .根键 = "Z",
    .根文本 = "中介来人登记",
    .键前缀 = "ZM",
    .有媒体 = false,
    .有客户详情 = true,
    .有中介公司 = true,
    .无公司显示客户 = false,
    .未知区域入其它 = true,
    .其它询问勾选 = true,
    .自动编号亦查编号 = false,
    .公司为空不写公司 = false,
    .自动编号看区域 = true,
    .树语句 =
        [](std::string_view code) {
            return sql(
                "Select * From YZ_引驻客户信息 Where 客源类别='中介来人' AND 管理处代号='{}'  Order By "
                "Len(登记编号),登记编号,登记日期",
                code);
        },
    .查询语句 = 来电规则.查询语句,
    .同名语句 = nullptr,
};

}  // namespace desk
