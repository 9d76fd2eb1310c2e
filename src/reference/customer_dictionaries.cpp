#include "reference/customer_dictionaries.h"

#include "session/helpers.h"

namespace desk {

Frm客户相关信息设置::Frm客户相关信息设置(Application& app)
    : Screen(screenName, "客户相关信息设置", WindowKind::child, 11400, 8400),
      app_(app),
      区域(*this, app, status_, 区域字典),
      企业性质(*this, app, status_, 企业性质字典),
      行业(*this, app, status_, 行业字典),
      pages_(页签, status_, {{区域.框, 区域.列表}, {企业性质.框, 企业性质.列表}, {行业.框, 行业.列表}}) {}

void Frm客户相关信息设置::load() {
    窗体居中(app_, *this);
    for (DictionaryTab* tab : {&区域, &企业性质, &行业}) tab->load();
    pages_.showCurrent();
}

}  // namespace desk
