#include "intent/unit_rows.h"

#include "base/failure.h"
#include "base/number.h"

namespace desk {

std::string 房源语句(std::string_view 管理处代号, const std::vector<std::string>& L_IDs,
                     const DateTime& today) {
    const std::string day = formatDate(today, "YYYYMMDD");
    const Fragment states = fragment(
        "SELECT 单元ID, 状态  From 单元出租状态 Where Convert(Char(8),设置日期,112)<='{}' AND (终止日期 Is "
        "Null Or Convert(Char(8),终止日期,112)>'{}')",
        day, day);
    const Fragment units = fragment(
        "SELECT S_ID,L_ID, 室,层次, 建筑面积, 状态 ,装修日期 From 室表 Left Join ({}) AS ZT ON "
        "室表.S_ID=ZT.单元ID Where Convert(Char(8),开始日期,112)<='{}' AND (结束日期 Is Null Or "
        "Convert(Char(8),结束日期,112)>'{}')",
        states, day, day);
    const Fragment tenants = fragment(
        "SELECT 合同单元信息.单元ID, 合同信息.客户编号,客户信息.客户名称,合同单元信息.起始日期, "
        "合同单元信息.终止日期 FROM 合同单元信息 INNER JOIN 合同信息 ON 合同单元信息.合同ID = 合同信息.ID "
        "INNER JOIN 客户信息 ON 合同信息.客户编号 = 客户信息.客户编号 Where "
        "Convert(Char(8),合同单元信息.起始日期,112)<='{}' AND (合同单元信息.终止日期 Is Null Or "
        "Convert(Char(8),合同单元信息.终止日期,112)>'{}')",
        day, day);
    return sql(
        "Select Case When 楼表.地址1 Is Not Null Then 楼表.地址1 Else '' End +  Case When 楼表.字1 Is Not "
        "Null Then 楼表.字1 Else '' End +  Case When 楼表.地址2 Is Not Null Then 楼表.地址2 Else '' End +  "
        "Case When 楼表.字2 Is Not Null Then 楼表.字2 Else '' End +  Case When 楼表.地址3 Is Not Null Then "
        "楼表.地址3 Else '' End +  Case When 楼表.字3 Is Not Null Then 楼表.字3 Else '' End +  Case When "
        "楼表.地址4 Is Not Null Then 楼表.地址4 Else '' End +  Case When 楼表.字4 Is Not Null Then 楼表.字4 "
        "Else '' End AS DZ,楼表.L_ID, 单元信息.室, 单元信息.建筑面积, 单元信息.层次, "
        "单元信息.状态,单元信息.装修日期,客户表.客户名称, 客户表.客户编号,单元信息.S_ID As 单元ID From 楼表  "
        "LEFT JOIN ({}) AS 单元信息 ON 楼表.L_ID = 单元信息.L_ID Left JOIN ({}) AS 客户表 ON 单元信息.S_ID = "
        "客户表.单元ID Where 楼表.管理处='{}' AND 楼表.L_ID in ({}) AND "
        "Convert(Char(8),楼表.开始日期,112)<='{}' AND (楼表.终止日期 Is Null Or "
        "Convert(Char(8),楼表.终止日期,112)>'{}') Order By "
        "len(楼编号),楼编号,Len(地址1),地址1,Len(地址2),地址2,Len(地址3),地址3,Len(地址4),地址4,len(层次),"
        "层次,len(室),室",
        units, tenants, 管理处代号, numerals(L_IDs), day, day);
}

房源行::房源行(Recordset rows)
    : rows_(std::move(rows)),
      dz_(rows_.column("DZ")),
      lId_(rows_.column("L_ID")),
      unit_(rows_.column("单元ID")),
      room_(rows_.column("室")),
      area_(rows_.column("建筑面积")),
      floor_(rows_.column("层次")),
      state_(rows_.column("状态")),
      fitting_(rows_.column("装修日期")),
      tenantName_(rows_.column("客户名称")),
      tenant_(rows_.column("客户编号")) {}

bool 房源行::可出租() {
    return rows_[state_].isNull() || rows_[state_].text() == "可出租";
}

房源 房源行::unit() {
    房源 unit;
    unit.单元ID = toInt32(rows_[unit_].number());
    unit.可出租 = 可出租();
    unit.客户编号 = rows_[tenant_].text();
    unit.客户名称 = rows_[tenantName_].text();
    unit.层次 = rows_[floor_].text();
    if (rows_[area_].isNull()) throw RuntimeFailure(failure::typeMismatch, "类型不匹配");
    unit.面积 = val(formatNumber(rows_[area_].number(), "0.00"));
    unit.装修中 = 装修中();
    unit.楼域 = 楼域();
    return unit;
}

}  // namespace desk
