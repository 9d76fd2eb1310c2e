#include "schema/table_lists.h"

namespace desk::schema {

using namespace words;

namespace {

/// Numbers of customers and letters have no unique index: two seats may draw the same number at the same
/// moment, and both rows are kept. The dictionaries have none since an entry may be renamed to the name of
/// another.
std::vector<Table> customerTables() {
    return {
        {"YZ_引驻客户信息",
         {id("ID"),         key("管理处代号"),  key("登记编号"),      integer("流水号"),
          text("客源类别"), text("公司名称"),   text("中介公司名称"), text("客户姓名"),
          text("职位"),     text("客户电话"),   text("传真"),         text("公司地址"),
          text("所在区域"), longText("媒体"),   longText("询问重点"), text("企业性质"),
          text("从事行业"), number("需求面积"), number("预算租金"),   longText("洽谈重点"),
          text("推荐楼层"), text("业务员"),     longText("备注"),     date("登记日期"),
          date("分配日期")},
         {{"引驻客户_编号", "管理处代号,登记编号"},
          {"引驻客户_流水号", "管理处代号,流水号"},
          {"引驻客户_公司", "管理处代号,公司名称"},
          {"引驻客户_电话", "管理处代号,客户电话"},
          {"引驻客户_类别顺序", "管理处代号,客源类别,len(登记编号),登记编号"},
          {"引驻客户_顺序", "管理处代号,len(登记编号),登记编号"},
          {"引驻客户_登记日期", "管理处代号,客源类别,登记日期"},
          {"引驻客户_日期", "登记日期"}}},
        {"YZ_引驻客户分配",
         {key("登记编号"), key("管理处代号"), text("组代号"), text("员工工号"), date("分配日期"),
          date("终止日期")},
         {{"引驻客户分配_客户", "登记编号,管理处代号"}, {"引驻客户分配_员工", "管理处代号,员工工号"}},
         "登记编号,管理处代号,分配日期,员工工号"},
        {"YZ_引驻客户跟进记录",
         {id("ID"), key("管理处代号"), key("登记编号"), date("跟进日期"), text("跟进人工号"),
          longText("跟进情况"), text("跟进状态编号"), date("预约日期")},
         {{"跟进记录_客户", "管理处代号,登记编号,跟进日期"},
          {"跟进记录_状态", "跟进状态编号,管理处代号,登记编号,跟进日期"}}},
    };
}

std::vector<Table> settingTables() {
    return {
        {"YZ_跟进状态设置",
         {key("状态编号"), text("状态名称"), integer("颜色表示"), text("说明")},
         {{"跟进状态_编号", "状态编号", true}}},
        {"YZ_区域设置", {key("区域名称"), text("说明")}, {{"区域_名称", "区域名称"}}, "区域名称"},
        {"YZ_企业性质设置",
         {key("企业性质名称"), text("说明")},
         {{"企业性质_名称", "企业性质名称"}},
         "企业性质名称"},
        {"YZ_行业设置", {key("行业名称"), text("说明")}, {{"行业_名称", "行业名称"}}, "行业名称"},
        {"YZ_媒体设置", {key("媒体名称"), text("说明")}, {{"媒体_名称", "媒体名称"}}, "媒体名称"},
        {"YZ_咨询内容设置", {key("咨询内容"), text("说明")}, {{"咨询内容_名称", "咨询内容"}}, "咨询内容"},
        {"YZ_中介公司设置",
         {id("ID"), key("管理处代号"), key("公司名称"), text("法人代表"), text("负责人"), text("负责人电话"),
          text("公司地址"), text("公司传真"), text("联系人"), text("联系人电话"), text("开户银行"),
          text("银行帐号"), longText("其它信息")},
         {{"中介公司_名称", "管理处代号,公司名称"}}},
        {"YZ_组表", {key("组代号"), text("组名称"), text("组说明")}, {{"组_代号", "组代号", true}}},
        {"YZ_主职表",
         {key("主职代号"), text("主职名称"), text("主职说明")},
         {{"主职_代号", "主职代号", true}}},
        {"YZ_组人员设置",
         {key("组代号"), key("员工工号"), text("主职代号"), date("设置日期"), text("备注"), date("终止日期")},
         {{"组人员_组", "组代号,员工工号"}, {"组人员_员工", "员工工号"}},
         "组代号,员工工号,设置日期"},
        {"YZ_组对应管理项目设置",
         {key("组代号"), key("管理处代号"), date("设置日期"), date("终止日期")},
         {{"组管理项目_组", "组代号,管理处代号"}, {"组管理项目_管理处", "管理处代号"}},
         "组代号,管理处代号,设置日期"},
    };
}

std::vector<Table> letterTables() {
    return {
        // 意向书ID repeats ID: the flow of one step addresses the letter by it.
        {"YZ_意向书信息",
         {id("ID"),
          key("意向书编号"),
          key("管理处代号"),
          integer("流水号"),
          integer("引驻客户信息ID"),
          text("承租方"),
          longText("租赁单元"),
          number("租赁面积"),
          number("租金单价"),
          number("月租金"),
          number("物业管理费单价"),
          number("月物业管理费"),
          date("租赁起始日期"),
          date("租赁结束日期"),
          date("装修起始日期"),
          date("装修结束日期"),
          text("付款方式"),
          text("递延方式"),
          text("免租期"),
          number("物业管理费意向金"),
          number("租金意向金"),
          number("意向金合计"),
          longText("承租方背景"),
          longText("申请说明"),
          moment("提交日期"),
          flag("流转通过"),
          moment("流转结束日期"),
          date("意向金收取日期"),
          {"意向书ID", Kind::integer, false, "ID"}},
         {{"意向书_编号", "管理处代号,意向书编号"},
          {"意向书_流水号", "管理处代号,流水号"},
          {"意向书_顺序", "管理处代号,len(意向书编号),意向书编号"}}},
        {"YZ_意向书单元信息",
         {id("ID"), integer("意向书ID"), integer("单元ID"), date("设置日期"), date("终止日期")},
         {{"意向书单元_单元", "单元ID"}, {"意向书单元_意向书", "意向书ID"}}},
        {"YZ_意向书审批路径设置",
         {id("ID"), text("审批路径代号"), text("审批路径名称"), text("管理处代号"), flag("单级流转"),
          date("起始日期"), text("备注"), date("终止日期")},
         {{"审批路径设置_管理处", "管理处代号"}, {"审批路径设置_代号", "审批路径代号"}}},
        {"YZ_意向书审批路径",
         {id("ID"), integer("意向书审批ID"), integer("审批环节序号"), text("部门代号"), text("岗位代号"),
          date("起始日期"), text("备注"), date("终止日期")},
         {{"审批路径_环节", "意向书审批ID,审批环节序号"}}},
        {"YZ_意向书审批情况",
         {id("ID"), integer("意向书ID"), integer("环节序号"), text("部门代号"), text("岗位代号"),
          longText("审批内容"), flag("同意"), moment("审批日期"), text("审批人")},
         {{"审批情况_意向书", "意向书ID,环节序号"}, {"审批情况_日期", "审批日期"}}},
        {"YZ_意向金收款",
         {id("ID"),
          integer("意向书ID"),
          moment("收款日期"),
          text("票据入库单编号"),
          text("票据编号"),
          text("收费项目"),
          text("收费项目代号"),
          text("科目编号"),
          number("数量"),
          money("单价"),
          money("金额"),
          text("票据类型"),
          text("收款人"),
          date("退款日期"),
          money("退款金额"),
          text("退款人"),
          longText("退款说明"),
          text("退款支付凭证编号"),
          longText("备注"),
          flag("处理结束"),
          flag("票据打印")},
         {{"意向金收款_意向书", "意向书ID"}}},
    };
}

}  // namespace

std::vector<Table> tenantTables() {
    std::vector<Table> all;
    for (auto& part : {customerTables(), settingTables(), letterTables()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

}  // namespace desk::schema
