#include "analysis/weekly_views.h"

#include <string_view>

namespace desk {

namespace {

std::vector<统计视图> allViews() {
    return {
        {"MT", "媒体分析", "序|媒体分析|人数|占比例", 字典统计{"媒体", "YZ_媒体设置", "媒体名称"}},
        {"QU", "区域分析", "序|区域分析|人数|占比例", 字典统计{"所在区域", "YZ_区域设置", "区域名称"}},
        {"HY", "公司行业", "序|公司行业|人数|占比例", 字典统计{"从事行业", "YZ_行业设置", "行业名称"}},
        {"XZ", "企业性质", "序|企业性质|人数|占比例",
         字典统计{"企业性质", "YZ_企业性质设置", "企业性质名称"}},
        {"XW", "询问重点", "序|询问重点|人数|占比例", 字典统计{"询问重点", "YZ_咨询内容设置", "咨询内容"}},
        {"YS", "预算租金", "序|预算租金（元/平米/天）|人次|占比例",
         数值统计{"预算租金", fragment("预算租金 AS YSZJ,count( 预算租金) AS SL")}},
        {"LR", "每天来人量", "序|每天来人量|人次|占比例", 逐日统计{}},
        {"MJ", "面积分析", "序|面积分析|人次|占比例",
         数值统计{"需求面积", fragment("需求面积 ,Count( 需求面积) AS SL")}},
    };
}

std::vector<统计视图> viewsOfCalls() {
    auto views = allViews();
    std::erase_if(views, [](const 统计视图& view) { return std::string_view(view.键) == "YS"; });
    return views;
}

}  // namespace

const 每周统计& 来客统计() {
    static const 每周统计 only{"frm每周来客统计分析", "每周来客统计分析", "引驻来人", allViews()};
    return only;
}

const 每周统计& 来电统计() {
    static const 每周统计 only{"frm每周来电统计分析", "每周来电统计分析", "引驻来电", viewsOfCalls()};
    return only;
}

}  // namespace desk
