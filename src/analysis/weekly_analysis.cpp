#include "analysis/weekly_analysis.h"

#include "analysis/excel_export.h"
#include "base/text.h"
#include "db/recordset.h"
#include "platform/clock.h"
#include "session/helpers.h"
#include "ui/batch.h"

namespace desk {

namespace {

enum Column { 序号列, 名称列, 数量列, 比例列, 列数 };

constexpr Colour titleColour = rgb(201, 167, 167);

/// Both screens put their tables out under it.
constexpr const char* 输出标题 = "每周来客统计分析";

/// Sets a flag while it lives.
class Switched {
  public:
    explicit Switched(bool& flag) : flag_(flag) { flag_ = true; }
    ~Switched() { flag_ = false; }
    Switched(const Switched&) = delete;
    Switched& operator=(const Switched&) = delete;

  private:
    bool& flag_;
};

}  // namespace

每周统计分析::每周统计分析(Application& app, const 每周统计& differences)
    : Screen(differences.screenName, differences.caption, WindowKind::child, 18000, 10200),
      app_(app),
      differences_(differences) {
    统计结果.setFormat(differences.视图.front().表头);
    alignNumbers(0);
    统计结果.hint = "请选择区域、时段和项目，然后统计";
    for (DatePicker* day : {&开始日期, &结束日期}) day->setValue(app.platform.clock.today());
    for (const 统计视图& view : differences.视图) 统计项目.add(nullptr, view.键, view.名称);
    全部.clicked += [this] {
        for (TreeNode* node : 统计项目.roots()) 统计项目.setChecked(*node, 全部.checked());
    };
    统计.clicked += [this] { count(); };
    输出.clicked += [this] { hand(); };
    退出.clicked += [this] { app_.screens.unload(*this); };
}

void 每周统计分析::load() {
    状态栏.setPanel(0, app_.session.登录部门名称 + " ");
    状态栏.setPanel(1, app_.session.登录岗位名称 + " ");
    填充管理处(app_, 选择区域);
}

std::vector<const 统计视图*> 每周统计分析::tickedViews() const {
    std::vector<const 统计视图*> ticked;
    for (const 统计视图& view : differences_.视图)
        if (统计项目.find(view.键)->checked()) ticked.push_back(&view);
    return ticked;
}

统计范围 每周统计分析::range() const {
    const DateTime from = 开始日期.value();
    const DateTime to = 结束日期.value();
    return {选择区域.code(),      from, to, app_.desktop.shortDate(from), app_.desktop.shortDate(to),
            differences_.客源类别};
}

void 每周统计分析::count() {
    if (统计中_) return;
    if (开始日期.value() > 结束日期.value())
        return app_.tell("统计开始日期不能大于结束日期，请重新选择日期！");
    if (!选择区域.hasSelection()) return 选择区域.focus();
    const auto views = tickedViews();
    if (views.empty()) return app_.tell("请选择统计项目");
    reset();
    const Switched counting(统计中_);
    countViews(views);
}

/// What a person changes meanwhile is for the next count. One that is stopped leaves the views that were
/// done.
void 每周统计分析::countViews(const std::vector<const 统计视图*>& views) {
    const 统计范围 leads = range();
    const ScreenWatch screen(*this);
    const Hourglass busy(app_.desktop);
    Progress progress(app_.desktop, Stopping::possible);
    for (const 统计视图* view : views) {
        const auto items = 计数(app_.主连接, *view, leads, [&](long done, long total) {
            return progress.show(std::string("正在统计：") + view->名称, done, total) && screen.isThere();
        });
        if (!screen.isThere()) return;
        if (!items) break;
        show(*view, *items);
    }
    GridFit(app_, 统计结果, *this);
}

void 每周统计分析::reset() {
    const Batch clearing(统计结果);
    统计结果.setRows(1);
    for (int column = 0; column < 统计结果.columns(); ++column) 统计结果.setText(0, column, "");
    已有结果_ = false;
}

void 每周统计分析::show(const 统计视图& view, const std::vector<统计项>& items) {
    const Batch showing(统计结果);
    统计结果.hint = "没有统计结果";
    if (已有结果_)
        addTitles(view);
    else
        统计结果.setFormat(view.表头);
    已有结果_ = true;
    float 合计 = 0;
    for (const 统计项& item : items) 合计 += item.数量;
    for (const 统计项& item : items)
        alignNumbers(统计结果.addRow(
            {std::to_string(统计结果.rows()), item.名称, item.数量文本, 占比例(item.数量, 合计)}));
}

/// The columns keep the general alignment, which the export goes by.
void 每周统计分析::alignNumbers(int row) {
    for (const int column : {数量列, 比例列}) 统计结果.setCellAlignment(row, column, Align::right);
}

void 每周统计分析::addTitles(const 统计视图& view) {
    auto titles = split(view.表头, '|');
    titles[序号列].clear();
    const int row = 统计结果.addRow(std::move(titles));
    for (int column = 0; column < 列数; ++column) {
        统计结果.setCellColour(row, column, titleColour);
        统计结果.setCellBold(row, column, true);
    }
    alignNumbers(row);
}

/// A table that still grows does not go out.
void 每周统计分析::hand() {
    if (!统计中_) 输出表格(app_, 统计结果, 输出标题, 开始日期.value(), 结束日期.value());
}

}  // namespace desk
