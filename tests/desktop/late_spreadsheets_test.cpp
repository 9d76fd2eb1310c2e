#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "desktop/convert.h"
#include "desktop/late_spreadsheets.h"
#include "support/failures.h"

namespace desk::desktop {

TEST(LateSpreadsheets, AreThoseOfTheModuleBesideTheProgram) {
    const QTemporaryDir folder;
    const std::string path = utf8(folder.filePath("台账.xls"));
    LateSpreadsheets spreadsheets;
    spreadsheets.create(path);
    const auto empty = QFile(folder.filePath("台账.xls")).size();
    Worksheet sheet("客户");
    sheet.at(0, 0).text = "东塔";
    spreadsheets.put(path, sheet);
    EXPECT_GT(empty, 0);
    EXPECT_GE(QFile(folder.filePath("台账.xls")).size(), empty);

    QFile other(folder.filePath("别的.xls"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("no workbook");
    other.close();
    EXPECT_EQ(failureOf([&] { spreadsheets.put(utf8(other.fileName()), sheet); }), failure::spreadsheet);
}

TEST(LateSpreadsheets, SayThatTheModuleIsMissing) {
    LateSpreadsheets spreadsheets("/nowhere/tenant-desk-workbooks");
    EXPECT_EQ(failureOf([&] { spreadsheets.create("never.xls"); }), failure::fileNotFound);
    EXPECT_FALSE(QFile::exists("never.xls"));
}

}  // namespace desk::desktop
