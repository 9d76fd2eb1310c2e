CREATE TABLE "YZ_引驻客户信息" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "管理处代号" TEXT COLLATE desk_zh NOT NULL,
  "登记编号" TEXT COLLATE desk_zh NOT NULL,
  "流水号" INTEGER,
  "客源类别" TEXT COLLATE desk_zh,
  "公司名称" TEXT COLLATE desk_zh,
  "中介公司名称" TEXT COLLATE desk_zh,
  "客户姓名" TEXT COLLATE desk_zh,
  "职位" TEXT COLLATE desk_zh,
  "客户电话" TEXT COLLATE desk_zh,
  "传真" TEXT COLLATE desk_zh,
  "公司地址" TEXT COLLATE desk_zh,
  "所在区域" TEXT COLLATE desk_zh,
  "媒体" TEXT COLLATE desk_zh,
  "询问重点" TEXT COLLATE desk_zh,
  "企业性质" TEXT COLLATE desk_zh,
  "从事行业" TEXT COLLATE desk_zh,
  "需求面积" REAL,
  "预算租金" REAL,
  "洽谈重点" TEXT COLLATE desk_zh,
  "推荐楼层" TEXT COLLATE desk_zh,
  "业务员" TEXT COLLATE desk_zh,
  "备注" TEXT COLLATE desk_zh,
  "登记日期" TEXT,
  "分配日期" TEXT
) STRICT;
CREATE INDEX "引驻客户_编号" ON "YZ_引驻客户信息" ("管理处代号", "登记编号");
CREATE INDEX "引驻客户_流水号" ON "YZ_引驻客户信息" ("管理处代号", "流水号");
CREATE INDEX "引驻客户_公司" ON "YZ_引驻客户信息" ("管理处代号", "公司名称");
CREATE INDEX "引驻客户_电话" ON "YZ_引驻客户信息" ("管理处代号", "客户电话");
CREATE INDEX "引驻客户_类别顺序" ON "YZ_引驻客户信息" ("管理处代号", "客源类别", length(rtrim("登记编号")), "登记编号");
CREATE INDEX "引驻客户_顺序" ON "YZ_引驻客户信息" ("管理处代号", length(rtrim("登记编号")), "登记编号");
CREATE INDEX "引驻客户_登记日期" ON "YZ_引驻客户信息" ("管理处代号", "客源类别", "登记日期");
CREATE TABLE "YZ_引驻客户分配" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "登记编号" TEXT COLLATE desk_zh NOT NULL,
  "管理处代号" TEXT COLLATE desk_zh NOT NULL,
  "组代号" TEXT COLLATE desk_zh,
  "员工工号" TEXT COLLATE desk_zh,
  "分配日期" TEXT,
  "终止日期" TEXT
) STRICT;
CREATE INDEX "引驻客户分配_客户" ON "YZ_引驻客户分配" ("登记编号", "管理处代号");
CREATE INDEX "引驻客户分配_员工" ON "YZ_引驻客户分配" ("管理处代号", "员工工号");
CREATE TABLE "YZ_引驻客户跟进记录" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "管理处代号" TEXT COLLATE desk_zh NOT NULL,
  "登记编号" TEXT COLLATE desk_zh NOT NULL,
  "跟进日期" TEXT,
  "跟进人工号" TEXT COLLATE desk_zh,
  "跟进情况" TEXT COLLATE desk_zh,
  "跟进状态编号" TEXT COLLATE desk_zh,
  "预约日期" TEXT
) STRICT;
CREATE INDEX "跟进记录_客户" ON "YZ_引驻客户跟进记录" ("管理处代号", "登记编号", "跟进日期");
CREATE INDEX "跟进记录_状态" ON "YZ_引驻客户跟进记录" ("跟进状态编号", "管理处代号", "登记编号", "跟进日期");
CREATE TABLE "YZ_跟进状态设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "状态编号" TEXT COLLATE desk_zh NOT NULL,
  "状态名称" TEXT COLLATE desk_zh,
  "颜色表示" INTEGER,
  "说明" TEXT COLLATE desk_zh
) STRICT;
CREATE UNIQUE INDEX "跟进状态_编号" ON "YZ_跟进状态设置" ("状态编号");
CREATE TABLE "YZ_区域设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "区域名称" TEXT COLLATE desk_zh NOT NULL,
  "说明" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "YZ_企业性质设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "企业性质名称" TEXT COLLATE desk_zh NOT NULL,
  "说明" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "YZ_行业设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "行业名称" TEXT COLLATE desk_zh NOT NULL,
  "说明" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "YZ_媒体设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "媒体名称" TEXT COLLATE desk_zh NOT NULL,
  "说明" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "YZ_咨询内容设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "咨询内容" TEXT COLLATE desk_zh NOT NULL,
  "说明" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "YZ_中介公司设置" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "管理处代号" TEXT COLLATE desk_zh NOT NULL,
  "公司名称" TEXT COLLATE desk_zh NOT NULL,
  "法人代表" TEXT COLLATE desk_zh,
  "负责人" TEXT COLLATE desk_zh,
  "负责人电话" TEXT COLLATE desk_zh,
  "公司地址" TEXT COLLATE desk_zh,
  "公司传真" TEXT COLLATE desk_zh,
  "联系人" TEXT COLLATE desk_zh,
  "联系人电话" TEXT COLLATE desk_zh,
  "开户银行" TEXT COLLATE desk_zh,
  "银行帐号" TEXT COLLATE desk_zh,
  "其它信息" TEXT COLLATE desk_zh
) STRICT;
CREATE INDEX "中介公司_名称" ON "YZ_中介公司设置" ("管理处代号", "公司名称");
CREATE TABLE "YZ_组表" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "组代号" TEXT COLLATE desk_zh NOT NULL,
  "组名称" TEXT COLLATE desk_zh,
  "组说明" TEXT COLLATE desk_zh
) STRICT;
CREATE UNIQUE INDEX "组_代号" ON "YZ_组表" ("组代号");
CREATE TABLE "YZ_主职表" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "主职代号" TEXT COLLATE desk_zh NOT NULL,
  "主职名称" TEXT COLLATE desk_zh,
  "主职说明" TEXT COLLATE desk_zh
) STRICT;
CREATE UNIQUE INDEX "主职_代号" ON "YZ_主职表" ("主职代号");
CREATE TABLE "YZ_组人员设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "组代号" TEXT COLLATE desk_zh NOT NULL,
  "员工工号" TEXT COLLATE desk_zh NOT NULL,
  "主职代号" TEXT COLLATE desk_zh,
  "设置日期" TEXT,
  "备注" TEXT COLLATE desk_zh,
  "终止日期" TEXT
) STRICT;
CREATE TABLE "YZ_组对应管理项目设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "组代号" TEXT COLLATE desk_zh NOT NULL,
  "管理处代号" TEXT COLLATE desk_zh NOT NULL,
  "设置日期" TEXT,
  "终止日期" TEXT
) STRICT;
CREATE TABLE "YZ_意向书信息" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "意向书编号" TEXT COLLATE desk_zh NOT NULL,
  "管理处代号" TEXT COLLATE desk_zh NOT NULL,
  "流水号" INTEGER,
  "引驻客户信息ID" INTEGER,
  "承租方" TEXT COLLATE desk_zh,
  "租赁单元" TEXT COLLATE desk_zh,
  "租赁面积" REAL,
  "租金单价" REAL,
  "月租金" REAL,
  "物业管理费单价" REAL,
  "月物业管理费" REAL,
  "租赁起始日期" TEXT,
  "租赁结束日期" TEXT,
  "装修起始日期" TEXT,
  "装修结束日期" TEXT,
  "付款方式" TEXT COLLATE desk_zh,
  "递延方式" TEXT COLLATE desk_zh,
  "免租期" TEXT COLLATE desk_zh,
  "物业管理费意向金" REAL,
  "租金意向金" REAL,
  "意向金合计" REAL,
  "承租方背景" TEXT COLLATE desk_zh,
  "申请说明" TEXT COLLATE desk_zh,
  "提交日期" TEXT,
  "流转通过" INTEGER,
  "流转结束日期" TEXT,
  "意向金收取日期" TEXT,
  "意向书ID" INTEGER GENERATED ALWAYS AS ("ID") VIRTUAL
) STRICT;
CREATE INDEX "意向书_编号" ON "YZ_意向书信息" ("管理处代号", "意向书编号");
CREATE INDEX "意向书_流水号" ON "YZ_意向书信息" ("管理处代号", "流水号");
CREATE INDEX "意向书_顺序" ON "YZ_意向书信息" ("管理处代号", length(rtrim("意向书编号")), "意向书编号");
CREATE TABLE "YZ_意向书单元信息" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "意向书ID" INTEGER,
  "单元ID" INTEGER,
  "设置日期" TEXT,
  "终止日期" TEXT
) STRICT;
CREATE INDEX "意向书单元_单元" ON "YZ_意向书单元信息" ("单元ID");
CREATE INDEX "意向书单元_意向书" ON "YZ_意向书单元信息" ("意向书ID");
CREATE TABLE "YZ_意向书审批路径设置" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "审批路径代号" TEXT COLLATE desk_zh,
  "审批路径名称" TEXT COLLATE desk_zh,
  "管理处代号" TEXT COLLATE desk_zh,
  "单级流转" INTEGER,
  "起始日期" TEXT,
  "备注" TEXT COLLATE desk_zh,
  "终止日期" TEXT
) STRICT;
CREATE TABLE "YZ_意向书审批路径" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "意向书审批ID" INTEGER,
  "审批环节序号" INTEGER,
  "部门代号" TEXT COLLATE desk_zh,
  "岗位代号" TEXT COLLATE desk_zh,
  "起始日期" TEXT,
  "备注" TEXT COLLATE desk_zh,
  "终止日期" TEXT
) STRICT;
CREATE INDEX "审批路径_环节" ON "YZ_意向书审批路径" ("意向书审批ID", "审批环节序号");
CREATE TABLE "YZ_意向书审批情况" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "意向书ID" INTEGER,
  "环节序号" INTEGER,
  "部门代号" TEXT COLLATE desk_zh,
  "岗位代号" TEXT COLLATE desk_zh,
  "审批内容" TEXT COLLATE desk_zh,
  "同意" INTEGER,
  "审批日期" TEXT,
  "审批人" TEXT COLLATE desk_zh
) STRICT;
CREATE INDEX "审批情况_意向书" ON "YZ_意向书审批情况" ("意向书ID", "环节序号");
CREATE INDEX "审批情况_日期" ON "YZ_意向书审批情况" ("审批日期");
CREATE TABLE "YZ_意向金收款" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "意向书ID" INTEGER,
  "收款日期" TEXT,
  "票据入库单编号" TEXT COLLATE desk_zh,
  "票据编号" TEXT COLLATE desk_zh,
  "收费项目" TEXT COLLATE desk_zh,
  "收费项目代号" TEXT COLLATE desk_zh,
  "科目编号" TEXT COLLATE desk_zh,
  "数量" REAL,
  "单价" REAL,
  "金额" REAL,
  "票据类型" TEXT COLLATE desk_zh,
  "收款人" TEXT COLLATE desk_zh,
  "退款日期" TEXT,
  "退款金额" REAL,
  "退款人" TEXT COLLATE desk_zh,
  "退款说明" TEXT COLLATE desk_zh,
  "退款支付凭证编号" TEXT COLLATE desk_zh,
  "备注" TEXT COLLATE desk_zh,
  "处理结束" INTEGER,
  "票据打印" INTEGER
) STRICT;
CREATE INDEX "意向金收款_意向书" ON "YZ_意向金收款" ("意向书ID");
CREATE TABLE "员工档案" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "工号" TEXT COLLATE desk_zh NOT NULL,
  "姓名" TEXT COLLATE desk_zh,
  "帐号密码" TEXT COLLATE desk_zh,
  "离职日期" TEXT
) STRICT;
CREATE UNIQUE INDEX "员工档案_工号" ON "员工档案" ("工号");
CREATE TABLE "岗位员工new" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "员工代号" TEXT COLLATE desk_zh,
  "岗位代号" TEXT COLLATE desk_zh,
  "主要岗位" INTEGER,
  "离岗日期" TEXT
) STRICT;
CREATE INDEX "岗位员工_员工" ON "岗位员工new" ("员工代号");
CREATE TABLE "岗位信息new" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "岗位代号" TEXT COLLATE desk_zh,
  "岗位名称" TEXT COLLATE desk_zh,
  "职能部门代号" TEXT COLLATE desk_zh,
  "岗位类别代号" TEXT COLLATE desk_zh,
  "工号" TEXT COLLATE desk_zh,
  "主要职责" TEXT COLLATE desk_zh,
  "起始日期" TEXT,
  "备注" TEXT COLLATE desk_zh,
  "终止日期" TEXT
) STRICT;
CREATE INDEX "岗位信息_岗位" ON "岗位信息new" ("岗位代号");
CREATE INDEX "岗位信息_部门" ON "岗位信息new" ("职能部门代号", "岗位代号");
CREATE TABLE "职能部门new" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "职能部门编号" TEXT COLLATE desk_zh,
  "职能部门名称" TEXT COLLATE desk_zh,
  "职能部门类别代号" TEXT COLLATE desk_zh,
  "终止日期" TEXT
) STRICT;
CREATE INDEX "职能部门_编号" ON "职能部门new" ("职能部门编号");
CREATE TABLE "上级部门new" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "职能部门编号" TEXT COLLATE desk_zh,
  "上级部门编号" TEXT COLLATE desk_zh,
  "起始日期" TEXT
) STRICT;
CREATE INDEX "上级部门_部门" ON "上级部门new" ("职能部门编号", "起始日期");
CREATE TABLE "职能部门类别" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "部门类别代号" TEXT COLLATE desk_zh,
  "部门类别名称" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "岗位类别" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "岗位类别编号" TEXT COLLATE desk_zh,
  "岗位类别名称" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "设置管理处" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "GYD_DH" TEXT COLLATE desk_zh NOT NULL,
  "GYD_Name" TEXT COLLATE desk_zh,
  "终止日期" TEXT
) STRICT;
CREATE TABLE "职能部门对应管理项目设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "职能部门编号" TEXT COLLATE desk_zh,
  "管理处代号" TEXT COLLATE desk_zh,
  "终止日期" TEXT
) STRICT;
CREATE TABLE "岗位权限设置" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "组代号" TEXT COLLATE desk_zh,
  "岗位代号" TEXT COLLATE desk_zh,
  "授权" INTEGER
) STRICT;
CREATE INDEX "岗位权限_岗位" ON "岗位权限设置" ("岗位代号");
CREATE TABLE "GroupPrivilege" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "GroupID" TEXT COLLATE desk_zh,
  "FormName" TEXT COLLATE desk_zh,
  "Popedom" INTEGER,
  "memo" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "专项审核权限表" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "类型" TEXT COLLATE desk_zh,
  "部门代号" TEXT COLLATE desk_zh,
  "岗位代号" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "Temp_Type" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "TypeName" TEXT COLLATE desk_zh NOT NULL,
  "Value" TEXT COLLATE desk_zh,
  "Character" TEXT COLLATE desk_zh
) STRICT;
CREATE UNIQUE INDEX "单据类型" ON "Temp_Type" ("TypeName");
CREATE TABLE "楼表" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "L_ID" INTEGER,
  "楼编号" TEXT COLLATE desk_zh,
  "地址1" TEXT COLLATE desk_zh,
  "字1" TEXT COLLATE desk_zh,
  "地址2" TEXT COLLATE desk_zh,
  "字2" TEXT COLLATE desk_zh,
  "地址3" TEXT COLLATE desk_zh,
  "字3" TEXT COLLATE desk_zh,
  "地址4" TEXT COLLATE desk_zh,
  "字4" TEXT COLLATE desk_zh,
  "管理处" TEXT COLLATE desk_zh,
  "开始日期" TEXT,
  "终止日期" TEXT
) STRICT;
CREATE INDEX "楼_编号" ON "楼表" ("L_ID");
CREATE TABLE "室表" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "S_ID" INTEGER,
  "L_ID" INTEGER,
  "室" TEXT COLLATE desk_zh,
  "层次" TEXT COLLATE desk_zh,
  "建筑面积" REAL,
  "装修日期" TEXT,
  "开始日期" TEXT,
  "结束日期" TEXT
) STRICT;
CREATE INDEX "室_编号" ON "室表" ("S_ID");
CREATE INDEX "室_楼" ON "室表" ("L_ID");
CREATE TABLE "单元出租状态" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "单元ID" INTEGER,
  "状态" TEXT COLLATE desk_zh,
  "设置日期" TEXT,
  "终止日期" TEXT
) STRICT;
CREATE INDEX "单元出租状态_单元" ON "单元出租状态" ("单元ID");
CREATE TABLE "合同单元信息" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "单元ID" INTEGER,
  "合同ID" INTEGER,
  "起始日期" TEXT,
  "终止日期" TEXT
) STRICT;
CREATE INDEX "合同单元_单元" ON "合同单元信息" ("单元ID");
CREATE INDEX "合同单元_合同" ON "合同单元信息" ("合同ID");
CREATE TABLE "合同信息" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "客户编号" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "客户信息" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "客户编号" TEXT COLLATE desk_zh,
  "客户名称" TEXT COLLATE desk_zh
) STRICT;
CREATE INDEX "客户_编号" ON "客户信息" ("客户编号");
CREATE TABLE "楼域范围设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "工号" TEXT COLLATE desk_zh,
  "L_ID" INTEGER
) STRICT;
CREATE TABLE "票据类型" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "票据类型代号" TEXT COLLATE desk_zh,
  "票据类型" TEXT COLLATE desk_zh,
  "税控" INTEGER,
  "定额" INTEGER
) STRICT;
CREATE TABLE "票据入库单" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "入库单编号" TEXT COLLATE desk_zh,
  "票据类型编号" TEXT COLLATE desk_zh,
  "税控" INTEGER
) STRICT;
CREATE INDEX "票据入库单_编号" ON "票据入库单" ("入库单编号");
CREATE TABLE "票据领用记录" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "票据领用记录编号" TEXT COLLATE desk_zh,
  "领用部门代号" TEXT COLLATE desk_zh
) STRICT;
CREATE INDEX "票据领用记录_部门" ON "票据领用记录" ("领用部门代号");
CREATE TABLE "票据领用清单" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "领用记录编号" TEXT COLLATE desk_zh,
  "入库单编号" TEXT COLLATE desk_zh,
  "核销日期" TEXT,
  "归还日期" TEXT
) STRICT;
CREATE INDEX "票据领用清单_记录" ON "票据领用清单" ("领用记录编号");
CREATE TABLE "票据共用设置" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "领用部门编号" TEXT COLLATE desk_zh,
  "共用部门编号" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "票据" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "入库单编号" TEXT COLLATE desk_zh,
  "票据编号" TEXT COLLATE desk_zh,
  "开票日期" TEXT,
  "作废日期" TEXT,
  "金额" REAL,
  "付款人" TEXT COLLATE desk_zh,
  "收款日期" TEXT,
  "开票人" TEXT COLLATE desk_zh,
  "收款人" TEXT COLLATE desk_zh,
  "开票部门编号" TEXT COLLATE desk_zh,
  "收款方式" TEXT COLLATE desk_zh
) STRICT;
CREATE INDEX "票据_编号" ON "票据" ("入库单编号", "票据编号");
CREATE TABLE "票据开票数据" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "票据编号" TEXT COLLATE desk_zh,
  "入库单编号" TEXT COLLATE desk_zh,
  "票据ID" INTEGER,
  "项目" TEXT COLLATE desk_zh,
  "收费项目代号" TEXT COLLATE desk_zh,
  "数量" REAL,
  "单价" REAL,
  "金额" REAL,
  "科目代号" TEXT COLLATE desk_zh,
  "非日常" INTEGER
) STRICT;
CREATE TABLE "SETUPSFXM" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "DH" TEXT COLLATE desk_zh,
  "XM" TEXT COLLATE desk_zh,
  "收费类别" TEXT COLLATE desk_zh,
  "对应科目" TEXT COLLATE desk_zh,
  "票据类型" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "财务科目" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "科目代号" TEXT COLLATE desk_zh,
  "科目名称" TEXT COLLATE desk_zh
) STRICT;
CREATE INDEX "财务科目_代号" ON "财务科目" ("科目代号");
CREATE TABLE "报销单表" (
  "报销单ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "报销单编号" TEXT COLLATE desk_zh,
  "流水号" INTEGER,
  "部门类别编号" TEXT COLLATE desk_zh,
  "部门代号" TEXT COLLATE desk_zh,
  "报销费用类别" TEXT COLLATE desk_zh,
  "报销类型" TEXT COLLATE desk_zh,
  "付款方式" TEXT COLLATE desk_zh,
  "报销日期" TEXT,
  "报批日期" TEXT,
  "制单人" TEXT COLLATE desk_zh,
  "报销人" TEXT COLLATE desk_zh,
  "财务支付确认日期" TEXT,
  "报销单类型" TEXT COLLATE desk_zh,
  "审批日期" TEXT,
  "审批通过" INTEGER,
  "一事一报" INTEGER,
  "备注" TEXT COLLATE desk_zh,
  "凭证编号" TEXT COLLATE desk_zh,
  "凭证流水号" INTEGER
) STRICT;
CREATE INDEX "报销单_编号" ON "报销单表" ("报销单编号");
CREATE INDEX "报销单_流水号" ON "报销单表" ("流水号");
CREATE INDEX "报销单_凭证" ON "报销单表" ("凭证编号");
CREATE INDEX "报销单_凭证流水号" ON "报销单表" ("凭证流水号");
CREATE TABLE "报销单明细" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "报销单ID" INTEGER,
  "科目代号" TEXT COLLATE desk_zh,
  "摘要" TEXT COLLATE desk_zh,
  "金额" REAL,
  "CzyDH" TEXT COLLATE desk_zh,
  "updatedate" TEXT
) STRICT;
CREATE INDEX "报销单明细_报销单" ON "报销单明细" ("报销单ID");
CREATE TABLE "报销附件" (
  _row INTEGER PRIMARY KEY AUTOINCREMENT,
  "报销单明细ID" INTEGER,
  "附件类型" TEXT COLLATE desk_zh,
  "项目" TEXT COLLATE desk_zh,
  "金额" REAL,
  "附件数量" INTEGER,
  "CzyDH" TEXT COLLATE desk_zh,
  "updatedate" TEXT
) STRICT;
CREATE TABLE "票据税控机" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "税控机编号" TEXT COLLATE desk_zh,
  "启用日期" TEXT,
  "终止日期" TEXT,
  "使用单位" TEXT COLLATE desk_zh,
  "税控码" TEXT COLLATE desk_zh,
  "税务登记号" TEXT COLLATE desk_zh,
  "开户银行" TEXT COLLATE desk_zh,
  "银行帐号" TEXT COLLATE desk_zh,
  "软件名称" TEXT COLLATE desk_zh,
  "启动后名称" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "SKOperator" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "SK_ID" INTEGER,
  "OperatorNum" TEXT COLLATE desk_zh,
  "UserNum" TEXT COLLATE desk_zh,
  "Password" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "SKStep" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "SK_ID" INTEGER,
  "Stage" TEXT COLLATE desk_zh,
  "Operate_step" INTEGER,
  "Operate_type" TEXT COLLATE desk_zh,
  "X" TEXT COLLATE desk_zh,
  "Y" TEXT COLLATE desk_zh,
  "KeyString" TEXT COLLATE desk_zh,
  "Remark" TEXT COLLATE desk_zh,
  "Operate_Help" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "SKTPStep" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "SK_ID" INTEGER,
  "Stage" TEXT COLLATE desk_zh,
  "Operate_step" INTEGER,
  "Operate_type" TEXT COLLATE desk_zh,
  "X" TEXT COLLATE desk_zh,
  "Y" TEXT COLLATE desk_zh,
  "KeyString" TEXT COLLATE desk_zh,
  "Remark" TEXT COLLATE desk_zh,
  "Operate_Help" TEXT COLLATE desk_zh
) STRICT;
CREATE TABLE "SKSfxm" (
  "ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "税控ID" INTEGER,
  "项目编号" TEXT COLLATE desk_zh,
  "项目名称" TEXT COLLATE desk_zh,
  "XM_Num" TEXT COLLATE desk_zh,
  "XM_Name" TEXT COLLATE desk_zh,
  "XM_Xu" INTEGER
) STRICT;
CREATE TABLE "WYZJ" (
  "ZJ_ID" INTEGER PRIMARY KEY AUTOINCREMENT NOT NULL,
  "ZJ_SKRQ" TEXT,
  "收款方式" TEXT COLLATE desk_zh,
  "收款人" TEXT COLLATE desk_zh
) STRICT;
