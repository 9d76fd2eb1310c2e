#include <gtest/gtest.h>

#include "base/failure.h"
#include "base/text.h"
#include "intent/letter_block.h"
#include "intent/letter_tree.h"
#include "intent/opinions.h"
#include "support/test_program.h"

namespace desk {
namespace {

/// What the screens of letters share, on a bare screen.
class LetterPieces : public testing::Test {
  protected:
    LetterPieces() { program.openDatabase(); }
    Recordset letters(Rows mode = Rows::forwardOnly) {
        return {program.db(), "Select * From YZ_意向书信息 Order By ID", mode};
    }

    TestProgram program;
    Screen screen{"试", "", WindowKind::child, 1, 1};
};

TEST_F(LetterPieces, TheFieldsAreNamedAndOrderedAsTheyAreWritten) {
    std::string named;
    for (const auto& field : 意向书信息块::fields())
        named += std::string(field.caption) + "=" + std::string(field.column) + " ";
    EXPECT_EQ(named,
              "承租方=承租方 租赁单元=租赁单元 租赁面积=租赁面积 租赁期限=租赁起始日期 至=租赁结束日期 "
              "租金单价=租金单价 月租金=月租金 物管费单价=物业管理费单价 月物管费=月物业管理费 "
              "付款方式=付款方式 递延方式=递延方式 物管费意向金=物业管理费意向金 租金意向金=租金意向金 "
              "意向金=意向金合计 装修期限=装修起始日期 至=装修结束日期 免租期限=免租期 承租方背景=承租方背景 "
              "申请说明=申请说明 ");
}

TEST_F(LetterPieces, TheFieldsShowALetterAndWriteItBack) {
    program.run(
        {"Insert Into YZ_意向书信息 (意向书编号,管理处代号,引驻客户信息ID,承租方,租赁面积,租赁起始日期) "
         "Values ('7','01',31,'甲',80.50,'2011-4-1')",
         "Insert Into YZ_意向书信息 (意向书编号,管理处代号) Values ('8','01')"});
    意向书信息块 block(screen, 意向书信息块::Use::editable);
    EXPECT_FALSE(block["租赁面积"].locked());
    const auto shown = [&] {
        std::vector<std::string> all{block.登记编号.text(), block.id(), block["承租方"].tag};
        for (const TextBox& box : block.boxes())
            if (!box.text().empty()) all.push_back(box.text());
        return join(all, "|");
    };
    {
        auto letter = letters(Rows::updatable);
        block.show(letter);
        EXPECT_EQ(shown(), "7|1|31|甲|80.5|2011-04-01");
        letter.moveNext();
        block["免租期"].setText("无");
        block.write(letter);
        letter.update();
    }
    EXPECT_EQ(program
                  .rows("Select 意向书编号,引驻客户信息ID,承租方,租赁面积,租赁起始日期,免租期 From "
                        "YZ_意向书信息 Where ID=2")
                  .front(),
              "8|31|甲|80.5|2011-04-01|无");
    // 清空文本框 leaves what stands behind the fields.
    清空文本框(screen);
    EXPECT_EQ(shown(), "|1|31");
    program.run(
        {"Update YZ_意向书信息 Set 承租方=NULL,引驻客户信息ID=NULL,免租期=NULL,租赁面积=NULL,租赁起始日期="
         "NULL Where ID=2",
         "Delete From YZ_意向书信息 Where ID=1"});
    auto letter = letters();
    block.show(letter);
    EXPECT_EQ(shown(), "8|2|");

    Screen other("另", "", WindowKind::child, 1, 1);
    意向书信息块 locked(other, 意向书信息块::Use::locked);
    EXPECT_TRUE(locked.登记编号.locked());
    for (const TextBox& box : locked.boxes()) EXPECT_TRUE(box.locked()) << box.name();
}

TEST_F(LetterPieces, TreesOfLettersDifferInTheirKeys) {
    program.run({"Insert Into YZ_意向书信息 (意向书编号,管理处代号,承租方) Values ('7','01','甲')",
                 "Insert Into YZ_意向书信息 (意向书编号,管理处代号) Values ('7','02')"});
    Tree tree(screen, "树");
    tree.add(nullptr, "旧", "旧");
    auto rows = letters();
    填充意向书树(tree, {.root = "待审批意向书", .rootKey = "R", .keyColumn = "ID"}, rows);
    ASSERT_EQ(tree.roots().size(), 1U);
    const TreeNode& root = *tree.roots().front();
    EXPECT_EQ(root.text(), "待审批意向书");
    EXPECT_EQ(root.key(), "R");
    EXPECT_TRUE(root.expanded());
    EXPECT_EQ(意向书键(root), "");
    ASSERT_EQ(root.children().size(), 2U);
    EXPECT_EQ(root.children()[0]->text(), "7 甲");
    EXPECT_EQ(root.children()[0]->key(), "YM1");
    EXPECT_EQ(意向书键(*root.children()[1]), "2");

    auto again = letters();
    try {
        填充意向书树(tree, {.root = "列表", .keyColumn = "意向书编号"}, again);
        ADD_FAILURE();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(failure.number(), failure::duplicateKey);
    }
    auto third = letters();
    填充意向书树(tree, {.root = "列表", .keyColumn = "意向书编号", .bearsDoubles = true}, third);
    ASSERT_EQ(tree.roots().front()->children().size(), 2U);
    for (const TreeNode* node : tree.roots().front()->children()) EXPECT_EQ(意向书键(*node), "7");
}

TEST_F(LetterPieces, OpinionsTellTheirMomentAsStoredOrToTheSecond) {
    program.run(
        {"Insert Into 职能部门new (职能部门编号,职能部门名称) Values ('01','招商部')",
         "Insert Into 员工档案 (工号,姓名) Values ('E2','周平')",
         "Insert Into 岗位信息new (岗位代号,岗位名称,职能部门代号,工号) Values ('0101','主管','01','E2')",
         "Insert Into YZ_意向书审批情况 (意向书ID,环节序号,部门代号,岗位代号) Values (5,2,'01','0101')",
         "Insert Into YZ_意向书审批情况 (意向书ID,环节序号,部门代号,岗位代号,审批人,审批日期,同意,审批内容)"
         " Values (5,1,'01','0101','吴','2011-3-5',0,'否')",
         "Insert Into YZ_意向书审批情况 (意向书ID,环节序号,部门代号,岗位代号) Values (5,3,'09','0101')",
         "Insert Into YZ_意向书审批情况 (意向书ID,环节序号,部门代号,岗位代号) Values (6,1,'01','0101')"});
    const auto told = [&](审批意见列表& list) {
        std::string all;
        for (int row = list.列表.fixedRows(); row < list.列表.rows(); ++row)
            for (int column = 0; column < list.列表.columns(); ++column)
                all += list.列表.text(row, column) + (column == 5 ? "/" : "|");
        return all;
    };
    审批意见列表 stored(screen, "甲", "序|部门|审批人|日期|意见|同意", program.app,
                        审批意见列表::Dates::asStored);
    stored.show("5");
    stored.show("5");
    EXPECT_EQ(stored.count(), 2);
    EXPECT_EQ(told(stored), "1|招商部 主管|吴|2011-03-05|否|不同意/2|招商部 主管|周平|||/");
    审批意见列表 exact(screen, "乙", "序|部门|审批人|日期|意见|同意", program.app,
                       审批意见列表::Dates::toTheSecond);
    exact.show("5");
    EXPECT_EQ(exact.列表.text(1, 3), "2011-03-05 00:00:00");
    EXPECT_EQ(exact.列表.text(2, 3), "");
}

}  // namespace
}  // namespace desk
