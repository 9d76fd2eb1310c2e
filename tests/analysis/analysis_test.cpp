#include <gtest/gtest.h>

#include "analysis/status_analysis.h"
#include "db/statement.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// Three states of customers.
struct AnalysisProgram : TestProgram {
    AnalysisProgram() {
        openDatabase();
        addOfficesAndDictionaries(*this);
        run(
            {"Insert Into YZ_跟进状态设置 (状态编号,状态名称,颜色表示) Values "
             "('10','签约',255),('2','洽谈',65280),('3','放弃',16711680)"});
        enter();
        app.screens.offer<Frm客户跟进状态分析>(app);
    }
};

class Analysis : public testing::Test {
  protected:
    Analysis() { form.Picture1.resize(9000, 6000, 1.0 / 15); }

    /// A customer in each of these states.
    void analyse(std::initializer_list<const char*> states) {
        for (const char* state : states) {
            program.db().execute(sql(
                "Insert Into YZ_引驻客户信息 (登记编号,管理处代号,登记日期) Values ('{}','01','2011-3-5')",
                ++leads));
            program.db().execute(
                sql("Insert Into YZ_引驻客户跟进记录 (管理处代号,登记编号,跟进日期,"
                    "跟进状态编号) Values ('01','{}','2011-3-1','{}')",
                    leads, state));
        }
        form.Check6.setChecked(true);
        form.Command1.click();
    }

    AnalysisProgram program;
    Frm客户跟进状态分析& form = program.app.screens.get<Frm客户跟进状态分析>();
    int leads = 0;
};

TEST_F(Analysis, TheSliceUnderThePointerRisesAndSinksAgain) {
    analyse({"2", "10"});
    const Picture flat = form.Picture1.picture();
    // The pie lies in the middle of what the table leaves of the area.
    EXPECT_EQ(form.Picture1.point(4500, 1400), 255);
    EXPECT_EQ(form.Picture1.point(4500, 1600), 65280);
    form.Picture1.movePointer(4500, 1000);
    EXPECT_NE(form.Picture1.picture().pixels, flat.pixels);
    EXPECT_EQ(form.Picture1.point(4500, 1500 - 1152 - 60), 255);
    form.Picture1.movePointer(100, 100);
    EXPECT_EQ(form.Picture1.picture().pixels, flat.pixels);
    // A new size of the picture draws it anew.
    form.Picture1.resize(12000, 6000, 1.0 / 15);
    EXPECT_EQ(form.Picture1.point(6000, 1400), 255);
}

TEST_F(Analysis, TheHiddenNumberIsTheDepthOfThePie) {
    analyse({"2"});
    // Half axes of 1800 and 1152 about a centre at 1500: the wall begins at 2652.
    const auto wallReaches = [&](double y) { return form.Picture1.point(4500, y) == darkShade(65280); };
    EXPECT_TRUE(wallReaches(2652 + 570));
    EXPECT_FALSE(wallReaches(2652 + 660));
    EXPECT_EQ(form.Picture1.point(4500 - 1770, 1500), 65280);
    EXPECT_EQ(form.Picture1.point(4500 - 1830, 1500), windowColour);
    form.Text2.setText("900");
    form.Command1.click();
    EXPECT_TRUE(wallReaches(2652 + 870));
    EXPECT_FALSE(wallReaches(2652 + 960));
}

TEST_F(Analysis, OfTwoStatesWithOneColourTheFirstRises) {
    program.run({"Update YZ_跟进状态设置 Set 颜色表示=255"});
    analyse({"2", "10"});
    const Picture flat = form.Picture1.picture();
    form.Picture1.movePointer(4500, 1000);
    const Picture first = form.Picture1.picture();
    EXPECT_TRUE(first.pixels != flat.pixels);
    form.Picture1.movePointer(4500, 2000);
    EXPECT_TRUE(form.Picture1.picture().pixels == first.pixels);
    EXPECT_EQ(form.Picture1.point(4500, 1500 - 1152 - 60), 255);
}

}  // namespace
}  // namespace desk
