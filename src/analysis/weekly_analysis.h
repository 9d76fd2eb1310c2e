#pragma once

#include <vector>

#include "analysis/weekly_count.h"
#include "session/application.h"
#include "session/coded_combo.h"
#include "ui/choices.h"
#include "ui/fields.h"
#include "ui/folding_frame.h"
#include "ui/grid.h"
#include "ui/tree.h"

namespace desk {

/// Counts the enquirers of one property in a span of days by any of several views, whose answers stand below
/// each other in one table.
class 每周统计分析 : public Screen {
  public:
    void load() override;
    void activate() override { restore(); }

    FoldingFrame 条件{*this, "条件"};
    CodedCombo 选择区域{条件, "选择区域"};
    DatePicker 开始日期{条件, "开始日期"};
    DatePicker 结束日期{条件, "结束日期"};
    Frame 项目{条件, "项目", "统计项目"};
    CheckBox 全部{项目, "全部", "全部"};
    Tree 统计项目{项目, "统计项目", Tree::Style::checkBoxes};
    Button 统计{条件, "统计", "统计", ButtonRole::main};
    Button 输出{条件, "输出", "输出"};
    Button 退出{条件, "退出", "退出"};
    Grid 统计结果{*this, "统计结果"};
    StatusBar 状态栏{*this, "状态栏", 2};

  protected:
    每周统计分析(Application& app, const 每周统计& differences);

  private:
    std::vector<const 统计视图*> tickedViews() const;
    统计范围 range() const;
    void count();
    void countViews(const std::vector<const 统计视图*>& views);
    void reset();
    void show(const 统计视图& view, const std::vector<统计项>& items);
    void addTitles(const 统计视图& view);
    void alignNumbers(int row);
    void hand();

    Application& app_;
    const 每周统计& differences_;
    bool 已有结果_ = false;  ///< the table holds a view
    bool 统计中_ = false;    ///< while events run in the midst of a count
};

/// The enquirers who came in person.
class Frm每周来客统计分析 : public 每周统计分析 {
  public:
    static constexpr const char* screenName = "frm每周来客统计分析";
    explicit Frm每周来客统计分析(Application& app) : 每周统计分析(app, 来客统计()) {}
};

/// The enquirers who telephoned.
class Frm每周来电统计分析 : public 每周统计分析 {
  public:
    static constexpr const char* screenName = "frm每周来电统计分析";
    explicit Frm每周来电统计分析(Application& app) : 每周统计分析(app, 来电统计()) {}
};

}  // namespace desk
