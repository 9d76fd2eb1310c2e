#pragma once

#include <string>
#include <vector>

#include "analysis/excel_export.h"
#include "analysis/weekly_analysis.h"
#include "db/statement.h"
#include "support/test_program.h"

namespace desk {

/// Both screens, and leads of one office: two visits and a call on 2011-3-1, a visit on 2011-3-3, a visit
/// before, and one to another office.
struct WeeklyProgram : TestProgram {
    WeeklyProgram() {
        openDatabase();
        addOfficesAndDictionaries(*this);
        enter();
        app.screens.offer<Frm每周来客统计分析>(app);
        app.screens.offer<Frm每周来电统计分析>(app);
        app.screens.offer<FrmToExcel>(app);
        add("01", "引驻来人", "2011-3-1", "报纸,网络", "浦东", "软件", "外资", "租金", "100", "2.5");
        add("01", "引驻来人", "2011-3-1", "网络", "静安", "软件", "民营", "租金,车位", "80.5", "3");
        add("01", "引驻来电", "2011-3-1", "报纸", "静安", "贸易", "外资", "车位", "100", "2.5");
        add("01", "引驻来人", "2011-3-3", "", "浦东", "贸易", "外资", "车位", "100", "");
        add("01", "引驻来人", "2011-2-28", "报纸", "浦东", "软件", "外资", "租金", "60", "4");
        add("02", "引驻来人", "2011-3-2", "报纸", "浦东", "软件", "外资", "租金", "70", "5");
    }

    template <class... Texts>
    void add(const char* office, const char* source, const char* day, const Texts&... texts) {
        const std::vector<std::string> all{texts...};
        db().execute(
            sql("Insert Into YZ_引驻客户信息 "
                "(登记编号,管理处代号,客源类别,登记日期,媒体,所在区域,从事行业,企业性质,询问重点,需求面积,"
                "预算租金) Values ('{}','{}','{}','{}','{}','{}','{}','{}','{}',{},{})",
                ++leads, office, source, day, all[0], all[1], all[2], all[3], all[4], numeral(all[5]),
                all[6].empty() ? literalOrNull("") : numeral(all[6])));
    }

    int leads = 0;
};

}  // namespace desk
