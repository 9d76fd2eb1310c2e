#pragma once

#include <array>

#include "money/print_lines.h"
#include "session/application.h"
#include "ui/fields.h"

namespace desk {

/// Stands in for a screen that prints tickets: it shows what it was asked for, and hands back what is typed
/// into 票据, or nothing where that is empty.
class 打印替身 : public 打印窗体 {
  public:
    打印替身(Application& app, const char* name)
        : 打印窗体(name, name, WindowKind::dialog, 6000, 4000), app_(app) {
        关闭.clicked += [this] {
            if (!票据.text().empty())
                app_.screens.loaded("frm意向金收取")->control("票据打印/保存相关收费数据")->tag = 票据.text();
            app_.screens.unload(*this);
        };
    }
    void 填写(const 开票内容& content) override {
        std::string all = content.付款人;
        for (const auto& item : content.项目)
            all += "|" + item.名称 + "," + item.收费项目代号 + "," + item.单价 + "," + item.数量 + "," +
                   item.金额;
        内容.setText(all);
    }

    TextBox 内容{*this, "内容"};
    TextBox 票据{*this, "票据"};
    Button 关闭{*this, "关闭", "关闭"};

  private:
    Application& app_;
};

class 税控替身 : public 打印替身 {
  public:
    static constexpr const char* screenName = "frm税控发票打印";
    explicit 税控替身(Application& app) : 打印替身(app, screenName) {}
};

}  // namespace desk
