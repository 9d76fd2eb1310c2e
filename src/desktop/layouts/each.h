#pragma once

#include <QWidget>

namespace desk {
class FrmAbout;
class FrmLogin;
class FrmToExcel;
class Frm中介公司设置;
class Frm人员设置;
class Frm客户跟进信息分配;
class Frm客户跟进状态分析;
class Frm客户跟进记录;
class Frm客户相关信息设置;
class Frm引驻客户信息登记;
class Frm引驻设置;
}  // namespace desk

namespace desk::desktop {

QWidget* layoutOfLogin(FrmLogin& screen);
QWidget* layoutOfAbout(FrmAbout& screen);
QWidget* layoutOfRegistration(Frm引驻客户信息登记& screen);
QWidget* layoutOfAssignment(Frm客户跟进信息分配& screen);
QWidget* layoutOfFollowUp(Frm客户跟进记录& screen);
QWidget* layoutOfStatusAnalysis(Frm客户跟进状态分析& screen);
QWidget* layoutOfExport(FrmToExcel& screen);
QWidget* layoutOfPersonnel(Frm人员设置& screen);
QWidget* layoutOfAgencies(Frm中介公司设置& screen);
QWidget* layoutOfCustomerDictionaries(Frm客户相关信息设置& screen);
QWidget* layoutOfLeadSettings(Frm引驻设置& screen);

}  // namespace desk::desktop
