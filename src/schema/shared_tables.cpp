#include "schema/table_lists.h"

namespace desk::schema {

using namespace words;

namespace {

std::vector<Table> staffTables() {
    return {
        {"员工档案",
         {key("工号"), text("姓名"), text("帐号密码"), date("离职日期")},
         {{"员工档案_工号", "工号", true}}},
        {"岗位员工new",
         {text("员工代号"), text("岗位代号"), flag("主要岗位"), date("离岗日期")},
         {{"岗位员工_员工", "员工代号"}, {"岗位员工_岗位", "岗位代号"}},
         "员工代号,岗位代号"},
        {"岗位信息new",
         {text("岗位代号"), text("岗位名称"), text("职能部门代号"), text("岗位类别代号"), text("工号"),
          longText("主要职责"), date("起始日期"), text("备注"), date("终止日期")},
         {{"岗位信息_岗位", "岗位代号"}, {"岗位信息_部门", "职能部门代号,岗位代号"}},
         "岗位代号"},
        {"职能部门new",
         {text("职能部门编号"), text("职能部门名称"), text("职能部门类别代号"), date("终止日期")},
         {{"职能部门_编号", "职能部门编号"}},
         "职能部门编号"},
        {"上级部门new",
         {text("职能部门编号"), text("上级部门编号"), date("起始日期")},
         {{"上级部门_部门", "职能部门编号,起始日期"}},
         "职能部门编号,上级部门编号,起始日期"},
        {"职能部门类别",
         {text("部门类别代号"), text("部门类别名称")},
         {{"职能部门类别_代号", "部门类别代号"}},
         "部门类别代号"},
        {"岗位类别",
         {text("岗位类别编号"), text("岗位类别名称")},
         {{"岗位类别_编号", "岗位类别编号"}},
         "岗位类别编号"},
    };
}

std::vector<Table> officeTables() {
    return {
        {"设置管理处",
         {key("GYD_DH"), text("GYD_Name"), date("终止日期")},
         {{"管理处_代号", "GYD_DH"}},
         "GYD_DH"},
        {"职能部门对应管理项目设置",
         {text("职能部门编号"), text("管理处代号"), date("终止日期")},
         {{"部门管理项目_部门", "职能部门编号,管理处代号"}},
         "职能部门编号,管理处代号"},
        {"岗位权限设置",
         {id("ID"), text("组代号"), text("岗位代号"), flag("授权")},
         {{"岗位权限_岗位", "岗位代号"}}},
        {"GroupPrivilege",
         {text("GroupID"), text("FormName"), flag("Popedom"), text("memo")},
         {{"权限组_组", "GroupID"}},
         "GroupID,FormName"},
        {"专项审核权限表",
         {id("ID"), text("类型"), text("部门代号"), text("岗位代号")},
         {{"专项审核权限_岗位", "部门代号,岗位代号"}}},
        {"Temp_Type", {key("TypeName"), text("Value"), text("Character")}, {{"单据类型", "TypeName", true}}},
    };
}

std::vector<Table> buildingTables() {
    return {
        {"楼表",
         {integer("L_ID"), text("楼编号"), text("地址1"), text("字1"), text("地址2"), text("字2"),
          text("地址3"), text("字3"), text("地址4"), text("字4"), text("管理处"), date("开始日期"),
          date("终止日期")},
         {{"楼_编号", "L_ID"}, {"楼_管理处", "管理处"}},
         "L_ID"},
        // No 状态: the statement over a unit and its letting status names that column bare, and means the
        // status.
        {"室表",
         {integer("S_ID"), integer("L_ID"), text("室"), text("层次"), number("建筑面积"), date("装修日期"),
          date("开始日期"), date("结束日期")},
         {{"室_编号", "S_ID"}, {"室_楼", "L_ID"}},
         "S_ID"},
        {"单元出租状态",
         {integer("单元ID"), text("状态"), date("设置日期"), date("终止日期")},
         {{"单元出租状态_单元", "单元ID"}},
         "单元ID,设置日期"},
        {"合同单元信息",
         {integer("单元ID"), integer("合同ID"), date("起始日期"), date("终止日期")},
         {{"合同单元_单元", "单元ID"}, {"合同单元_合同", "合同ID"}},
         "单元ID,合同ID"},
        {"合同信息", {id("ID"), text("客户编号")}, {}},
        {"客户信息", {text("客户编号"), text("客户名称")}, {{"客户_编号", "客户编号"}}, "客户编号"},
        {"楼域范围设置", {text("工号"), integer("L_ID")}, {{"楼域范围_员工", "工号"}}, "工号,L_ID"},
    };
}

std::vector<Table> receiptTables() {
    return {
        {"票据类型",
         {text("票据类型代号"), text("票据类型"), flag("税控"), flag("定额")},
         {{"票据类型_代号", "票据类型代号"}},
         "票据类型代号"},
        {"票据入库单",
         {text("入库单编号"), text("票据类型编号"), flag("税控")},
         {{"票据入库单_编号", "入库单编号"}},
         "入库单编号"},
        {"票据领用记录",
         {text("票据领用记录编号"), text("领用部门代号")},
         {{"票据领用记录_部门", "领用部门代号"}},
         "票据领用记录编号"},
        {"票据领用清单",
         {text("领用记录编号"), text("入库单编号"), date("核销日期"), date("归还日期")},
         {{"票据领用清单_记录", "领用记录编号"}},
         "领用记录编号,入库单编号"},
        {"票据共用设置",
         {text("领用部门编号"), text("共用部门编号")},
         {{"票据共用_部门", "共用部门编号"}},
         "领用部门编号,共用部门编号"},
        {"票据",
         {id("ID"), text("入库单编号"), text("票据编号"), moment("开票日期"), moment("作废日期"),
          money("金额"), text("付款人"), moment("收款日期"), text("开票人"), text("收款人"),
          text("开票部门编号"), text("收款方式")},
         {{"票据_编号", "入库单编号,票据编号"}}},
        {"票据开票数据",
         {id("ID"), text("票据编号"), text("入库单编号"), integer("票据ID"), text("项目"),
          text("收费项目代号"), number("数量"), money("单价"), money("金额"), text("科目代号"),
          flag("非日常")},
         {}},
        {"SETUPSFXM",
         {id("ID"), text("DH"), text("XM"), text("收费类别"), text("对应科目"), text("票据类型")},
         {}},
        {"财务科目", {text("科目代号"), text("科目名称")}, {{"财务科目_代号", "科目代号"}}, "科目代号"},
    };
}

std::vector<Table> reimbursementTables() {
    return {
        {"报销单表",
         {id("报销单ID"),           text("报销单编号"),   integer("流水号"), text("部门类别编号"),
          text("部门代号"),         text("报销费用类别"), text("报销类型"),  text("付款方式"),
          date("报销日期"),         date("报批日期"),     text("制单人"),    text("报销人"),
          date("财务支付确认日期"), text("报销单类型"),   date("审批日期"),  flag("审批通过"),
          flag("一事一报"),         longText("备注"),     text("凭证编号"),  integer("凭证流水号")},
         {{"报销单_编号", "报销单编号"},
          {"报销单_流水号", "流水号"},
          {"报销单_凭证", "凭证编号"},
          {"报销单_凭证流水号", "凭证流水号"}}},
        {"报销单明细",
         {id("ID"), integer("报销单ID"), text("科目代号"), text("摘要"), money("金额"), text("CzyDH"),
          moment("updatedate")},
         {{"报销单明细_报销单", "报销单ID"}}},
        {"报销附件",
         {integer("报销单明细ID"), text("附件类型"), text("项目"), money("金额"), integer("附件数量"),
          text("CzyDH"), moment("updatedate")},
         {},
         "报销单明细ID,附件类型,项目"},
    };
}

/// X and Y of a step are texts: the run converts them, and what is no number stops it there.
Table scriptTable(std::string_view name, std::string_view index) {
    return {name,
            {id("ID"), integer("SK_ID"), text("Stage"), integer("Operate_step"), text("Operate_type"),
             text("X"), text("Y"), text("KeyString"), text("Remark"), text("Operate_Help")},
            {{index, "SK_ID,Operate_step"}}};
}

std::vector<Table> taxDeviceTables() {
    return {
        {"票据税控机",
         {id("ID"), text("税控机编号"), date("启用日期"), date("终止日期"), text("使用单位"), text("税控码"),
          text("税务登记号"), text("开户银行"), text("银行帐号"), text("软件名称"), text("启动后名称")},
         {}},
        {"SKOperator",
         {id("ID"), integer("SK_ID"), text("OperatorNum"), text("UserNum"), text("Password")},
         {}},
        scriptTable("SKStep", "开票步骤_税控机"),
        scriptTable("SKTPStep", "退票步骤_税控机"),
        {"SKSfxm",
         {id("ID"), integer("税控ID"), text("项目编号"), text("项目名称"), text("XM_Num"), text("XM_Name"),
          integer("XM_Xu")},
         {}},
        {"WYZJ", {id("ZJ_ID"), date("ZJ_SKRQ"), text("收款方式"), text("收款人")}, {}},
    };
}

}  // namespace

std::vector<Table> sharedTables() {
    std::vector<Table> all;
    for (auto& part : {staffTables(), officeTables(), buildingTables(), receiptTables(),
                       reimbursementTables(), taxDeviceTables()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

}  // namespace desk::schema
