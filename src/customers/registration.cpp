#include "customers/registration.h"

#include <functional>

#include "base/failure.h"
#include "db/recordset.h"
#include "platform/clock.h"
#include "session/helpers.h"

namespace desk {

Frm引驻客户信息登记::Frm引驻客户信息登记(Application& app)
    : Screen(screenName, "引驻客户信息登记", WindowKind::child, 18000, 10200),
      来人(app, *this, "来人", 来人规则),
      来电(app, *this, "来电", 来电规则),
      中介来人(app, *this, "中介", 中介规则),
      app_(app) {
    页签.selected += [this] { showPage(); };
}

void Frm引驻客户信息登记::load() {
    readDictionaries();
    readOffices();
    for (登记页* page : pages()) page->登记日期.setValue(app_.platform.clock.today());
    showPage();
}

void Frm引驻客户信息登记::activate() {
    maximise();
}

void Frm引驻客户信息登记::readDictionaries() {
    const auto fill = [this](std::string_view statement, std::string_view column,
                             const std::function<ItemHolder*(登记页&)>& control) {
        for (auto& row : Recordset(app_.主连接, statement))
            for (登记页* page : pages())
                if (ItemHolder* holder = control(*page)) holder->addItem(row[column].text());
    };
    try {
        fill("Select * From YZ_区域设置", "区域名称", [](登记页& page) { return &page.区域; });
        fill("Select * From YZ_企业性质设置", "企业性质名称",
             [](登记页& page) { return page.企业性质 ? &*page.企业性质 : nullptr; });
        fill("Select * From YZ_行业设置", "行业名称", [](登记页& page) { return &page.从事行业; });
        fill("Select * From YZ_媒体设置", "媒体名称",
             [](登记页& page) { return page.媒体 ? &page.媒体->列表 : nullptr; });
        fill("Select * From YZ_咨询内容设置", "咨询内容", [](登记页& page) { return &page.询问重点.列表; });
    } catch (const RuntimeFailure&) {
        // The screen opens with what it has.
    }
}

void Frm引驻客户信息登记::readOffices() {
    for (登记页* page : pages()) 尽量填充管理处(app_, page->管理项目);
}

void Frm引驻客户信息登记::showPage() {
    状态栏.setPanel(0, "新增");
    状态栏.setPanel(1, pages()[static_cast<std::size_t>(页签.index())]->rules().标题);
}

}  // namespace desk
