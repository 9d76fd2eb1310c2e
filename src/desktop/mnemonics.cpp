#include "desktop/mnemonics.h"

#include <QHash>
#include <QRegularExpression>

namespace desk::desktop {

namespace {

/// The bar's own entries and the buttons of a screen are reached at the same time, so their letters differ;
/// the entries of one menu differ among themselves.
const QHash<QString, QChar>& letters() {
    static const QHash<QString, QChar> all = {
        {"引驻信息管理", 'Y'}, {"意向客户管理", 'I'}, {"统计报表", 'R'},
        {"基础信息设置", 'J'}, {"其它模块", 'M'},     {"退出系统", 'Q'},
        {"关于", 'A'},

        {"客户信息登记", 'R'}, {"客户跟进分配", 'F'}, {"客户跟进管理", 'G'},
        {"意向客户登记", 'R'}, {"意向客户审批", 'S'}, {"意向金收取", 'Q'},
        {"来电统计分析", 'D'}, {"来客统计分析", 'K'}, {"跟进状态分析", 'Z'},
        {"客户分类统计", 'F'}, {"人员设置", 'R'},     {"中介公司设置", 'Z'},
        {"客户设置", 'K'},     {"引驻设置", 'Y'},     {"意向书审批流程设置", 'L'},
        {"注销", 'Z'},         {"关于我们", 'A'},     {"联系我们", 'L'},

        {"新增", 'N'},         {"取消", 'C'},         {"确定", 'S'},
        {"删除", 'D'},         {"退出", 'X'},         {"终止", 'T'},
        {"输出", 'E'},         {"浏览", 'B'},         {"登录", 'L'},
    };
    return all;
}

}  // namespace

QString withMnemonic(const QString& caption) {
    const auto found = letters().find(caption);
    return found == letters().end() ? caption : caption + "(&" + *found + ")";
}

QString withoutMnemonic(const QString& shown) {
    static const QRegularExpression letter("\\(&.\\)$");
    return QString(shown).remove(letter);
}

}  // namespace desk::desktop
