#include "desktop/layouts/analysis.h"

#include "desktop/layout.h"

namespace desk::desktop {

using namespace layout;

QWidget* layoutOfStatusAnalysis(Frm客户跟进状态分析& screen) {
    auto* span = fields({{"统计时段", screen.DTPicker1}, {"至", screen.DTPicker2}});
    auto* states =
        framed(screen.跟进状态, rows({plain(screen.Check6), plain(screen.TreeView2, "跟进状态")}, {0, 1}));
    auto* left = rows({fields({{"管理项目", screen.Combo1}}), group("统计条件", span), states,
                       buttons({&screen.Command1, &screen.Command13, &screen.Command4})},
                      {0, 0, 1, 0});
    auto* picture =
        overLowerEdge(plain(screen.Picture1), framed(screen.结果面板, plain(screen.MSFlexGrid1, "统计结果")),
                      Frm客户跟进状态分析::表格高度);
    auto* right = columns({picture, atMost(atLeast(plain(screen.图例, "图例"), 3900, 0), 3900)}, {1, 0});
    auto* whole = rows({columns({left, right}, {2, 7}), plain(screen.状态栏)}, {1, 0});
    whole->setContentsMargins(6, 6, 6, 4);
    return whole;
}

QWidget* layoutOfWeekly(每周统计分析& screen) {
    auto* span = fields({{"从", screen.开始日期}, {"至", screen.结束日期}});
    auto* items = framed(screen.项目, rows({plain(screen.全部), plain(screen.统计项目, "统计项目")}, {0, 1}));
    auto* left = rows({fields({{"选择区域", screen.选择区域}}), group("统计时段", span), items,
                       buttons({&screen.统计, &screen.输出, &screen.退出})},
                      {0, 0, 1, 0});
    auto* whole =
        rows({folding(screen.条件, left, plain(screen.统计结果, "统计结果"), {2, 7}), plain(screen.状态栏)},
             {1, 0});
    whole->setContentsMargins(6, 6, 6, 4);
    return whole;
}

QWidget* layoutOfClassification(Frm客户分类统计& screen) {
    const auto marked = [](std::string_view title, CheckBox& all, ListBox& list) {
        return group(title, rows({plain(all), plain(list, title)}, {0, 1}));
    };
    auto* kinds = columns(
        {marked("企业性质", screen.Check1, screen.List1), marked("行业", screen.Check2, screen.List2)});
    auto* agencies =
        group("中介公司", rows({fields({{"查找", screen.Text1}}), plain(screen.List4, "中介公司")}));
    auto* teams = columns({marked("引驻组", screen.Check3, screen.List3), agencies});
    auto* filters = rows({fields({{"管理项目", screen.Combo1}}), kinds, teams,
                          buttons({&screen.Command1, &screen.Command13, &screen.Command4})},
                         {0, 1, 1, 0});
    auto* whole = folding(screen.条件, filters, plain(screen.MSFlexGrid1, "统计结果"), {1, 2});
    whole->setContentsMargins(6, 6, 6, 6);
    return whole;
}

QWidget* layoutOfExport(FrmToExcel& screen) {
    auto* file = columns({plain(screen.文件), plain(screen.Command1)}, {1, 0});
    auto* whole =
        rows({fields({{"Excel文件路径和名称", file},
                      {"文档标题", screen.文档标题},
                      {"工作表名称", screen.工作表名称}}),
              plain(screen.Check1), caption("输出的列：单击选取，双击取消"), plain(screen.Grid1, "输出的列"),
              buttons({&screen.Command2, &screen.Command3}), plain(screen.StatusBar1)},
             {0, 0, 0, 1, 0, 0});
    whole->setContentsMargins(8, 8, 8, 4);
    return whole;
}

}  // namespace desk::desktop
