#include "support/transcripts_of_room.h"

namespace desk {
namespace {

/// The screens behind the menu, as bare windows.
void offerBareScreens(TestProgram& program) {
    for (const std::string name :
         {"Frm引驻客户信息登记", "Frm客户跟进信息分配", "frm客户跟进记录", "frm意向书信息", "Frm意向书审批",
          "frm意向金收取", "frm每周来电统计分析", "frm每周来客统计分析", "Frm客户跟进状态分析",
          "frm客户分类统计", "frm人员设置", "frm中介公司设置", "frm客户相关信息设置", "frm引驻设置",
          "frm意向书审批路径设置"})
        program.app.screens.offer(
            name, [name] { return std::make_unique<Screen>(name, name, WindowKind::child, 3000, 3000); });
}

TRANSCRIPTS_OF_ROOM(offerBareScreens)

}  // namespace
}  // namespace desk
