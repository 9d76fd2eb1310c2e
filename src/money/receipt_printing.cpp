#include "money/receipt_printing.h"

namespace desk {

Frm票据打印::Frm票据打印(Application& app)
    : 打印窗体(screenName, "票据打印", WindowKind::dialog, 15900, 9600) {
    TextBox& first = 样张.项目.front().项目;
    first.changed += [this, &first] { 首项名称.setCaption(first.text()); };
    打印发票.clicked += [&app] { app.tell("未设置"); };
    关闭.clicked += [this, &app] { app.screens.unload(*this); };
}

}  // namespace desk
