#include "desktop/screen_list.h"

#include <algorithm>
#include <stdexcept>

#include "desktop/layout.h"
#include "desktop/layouts/analysis.h"
#include "desktop/layouts/approval.h"
#include "desktop/layouts/intent.h"
#include "desktop/layouts/letter.h"
#include "desktop/layouts/money.h"
#include "desktop/layouts/pipeline.h"
#include "desktop/layouts/reference.h"
#include "desktop/layouts/registration.h"
#include "desktop/layouts/session.h"
#include "desktop/layouts/tax_invoice.h"
#include "desktop/layouts/unit_map.h"
#include "desktop/screen_keys.h"
#include "session/background.h"
#include "session/main_window.h"

namespace desk::desktop {

namespace {

template <class S>
std::unique_ptr<Screen> make(Application& app) {
    return std::make_unique<S>(app);
}

/// A screen whose window holds what `layOut` makes.
template <class S, auto layOut>
constexpr KnownScreen screen() {
    return {S::screenName, make<S>, [](Screen& shown) { return layOut(static_cast<S&>(shown)); }};
}

/// The main window lays itself out, and its background is never shown.
template <class S>
constexpr KnownScreen withoutLayout() {
    return {S::screenName, make<S>, nullptr};
}

}  // namespace

const std::vector<KnownScreen>& screenList() {
    static const std::vector<KnownScreen> list{
        screen<FrmLogin, layoutOfLogin>(),
        screen<FrmAbout, layoutOfAbout>(),
        withoutLayout<MDIForm1>(),
        withoutLayout<Frmtu>(),
        screen<Frm引驻客户信息登记, layoutOfRegistration>(),
        screen<Frm客户跟进信息分配, layoutOfAssignment>(),
        screen<Frm客户跟进记录, layoutOfFollowUp>(),
        screen<Frm客户跟进状态分析, layoutOfStatusAnalysis>(),
        screen<Frm每周来电统计分析, layoutOfWeekly>(),
        screen<Frm每周来客统计分析, layoutOfWeekly>(),
        screen<Frm客户分类统计, layoutOfClassification>(),
        screen<FrmToExcel, layoutOfExport>(),
        screen<Frm人员设置, layoutOfPersonnel>(),
        screen<Frm中介公司设置, layoutOfAgencies>(),
        screen<Frm客户相关信息设置, layoutOfCustomerDictionaries>(),
        screen<Frm引驻设置, layoutOfLeadSettings>(),
        screen<Frm意向书审批路径设置, layoutOfApprovalPath>(),
        screen<Frm意向书信息, layoutOfLetter>(),
        screen<Frm意向书审批, layoutOfApproval>(),
        screen<Frm房源一览表, layoutOfUnitMap>(),
        screen<Frm意向金收取, layoutOfDeposits>(),
        screen<Frm票据打印, layoutOfReceiptPrinting>(),
        screen<Frm税控发票打印, layoutOfTaxInvoice>(),
    };
    return list;
}

void offerScreens(Application& app) {
    for (const KnownScreen& known : screenList())
        app.screens.offer(known.name, [&app, make = known.make] { return make(app); });
}

QWidget* layoutOf(Screen& screen) {
    const auto& list = screenList();
    const auto known = std::find_if(list.begin(), list.end(),
                                    [&](const KnownScreen& line) { return line.name == screen.name(); });
    if (known == list.end() || known->layOut == nullptr)
        throw std::logic_error("no layout for " + screen.name());
    QWidget* content = known->layOut(screen);
    layout::orderTabs(content);
    addScreenKeys(content);
    return content;
}

}  // namespace desk::desktop
