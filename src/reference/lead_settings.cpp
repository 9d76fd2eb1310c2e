#include "reference/lead_settings.h"

#include "session/helpers.h"

namespace desk {

Frm引驻设置::Frm引驻设置(Application& app)
    : Screen(screenName, "引驻设置", WindowKind::child, 11400, 8400),
      app_(app),
      咨询内容(*this, app, status_, 咨询内容字典),
      媒体(*this, app, status_, 媒体字典),
      跟进状态(*this, app, status_),
      pages_(页签, status_,
             {{咨询内容.框, 咨询内容.列表}, {媒体.框, 媒体.列表}, {跟进状态.框, 跟进状态.列表}}) {}

void Frm引驻设置::load() {
    窗体居中(app_, *this);
    咨询内容.load();
    媒体.load();
    跟进状态.load();
    for (Grid* grid : std::initializer_list<Grid*>{&咨询内容.列表, &媒体.列表, &跟进状态.列表})
        列宽自适应1(app_, *grid, *this);
    pages_.showCurrent();
}

}  // namespace desk
