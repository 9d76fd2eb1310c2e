#pragma once

#include <QWidget>

namespace desk {
class FrmAbout;
class FrmLogin;
class Frm客户跟进信息分配;
class Frm客户跟进记录;
class Frm引驻客户信息登记;
}  // namespace desk

namespace desk::desktop {

QWidget* layoutOfLogin(FrmLogin& screen);
QWidget* layoutOfAbout(FrmAbout& screen);
QWidget* layoutOfRegistration(Frm引驻客户信息登记& screen);
QWidget* layoutOfAssignment(Frm客户跟进信息分配& screen);
QWidget* layoutOfFollowUp(Frm客户跟进记录& screen);

}  // namespace desk::desktop
