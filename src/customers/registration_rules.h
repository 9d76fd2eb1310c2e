#pragma once

#include <string>
#include <string_view>

namespace desk {

/// What tells the three kinds of registration apart. Several of these differences are old habits of the
/// system that its users' data rely on; none is to be evened out.
struct 登记页规则 {
    std::string_view 客源类别;
    std::string_view 标题;  ///< in the status bar
    std::string_view 根键;
    std::string_view 根文本;
    std::string_view 键前缀;

    bool 有媒体;      ///< media list
    bool 有客户详情;  ///< position, fax, budget, kind of enterprise, points of negotiation, floors
    bool 有中介公司;  ///< agency and its picker, in place of the duplicate check

    bool 无公司显示客户;    ///< a tree node without company shows the contact
    bool 未知区域入其它;    ///< an unknown region is shown in the other-text and ticked; else it is dropped
    bool 其它询问勾选;      ///< an unknown enquiry ticks its box; else only the text is filled
    bool 自动编号亦查编号;  ///< the number field must be filled even when numbers are automatic
    bool 公司为空不写公司;  ///< without a company, company and address of the row are left alone
    bool 自动编号看区域;    ///< the automatic-number box looks at the region's box instead of itself

    std::string (*树语句)(std::string_view code);
    std::string (*查询语句)(std::string_view no, std::string_view code);
    std::string (*同名语句)(std::string_view company, std::string_view code);
};

extern const 登记页规则 来人规则;
extern const 登记页规则 来电规则;
extern const 登记页规则 中介规则;

}  // namespace desk
