#include <gtest/gtest.h>

#include <QPainter>
#include <QScrollBar>
#include <QTableView>

#include "desktop/cell_pictures.h"
#include "desktop/form.h"
#include "desktop/person.h"
#include "money/charge_grid.h"

namespace desk::desktop {
namespace {

TEST(MergedCells, SayWhatTheySayInThePartOfThemThatIsInView) {
    Form form;
    form.grid.setMerging(Merge::free);
    form.grid.setMergesColumn(1, true);
    for (int row = 0; row < 200; ++row) form.grid.addRow({std::to_string(row), "一组"});
    const Person person(shown({&form.grid}));
    const auto& table = person.at<QTableView>(form.grid);
    for (const int row : {0, 60, 120}) {
        table.verticalScrollBar()->setValue(row);
        const QImage seen = table.viewport()->grab().toImage();
        const int left = table.columnViewportPosition(1) + 3;
        bool saysSomething = false;
        for (int x = left; x < left + table.columnWidth(1) - 6; ++x)
            for (int y = 3; y < seen.height() - 3; ++y)
                saysSomething = saysSomething || seen.pixel(x, y) != seen.pixel(left, 3);
        EXPECT_TRUE(saysSomething) << row;
    }
}

/// As a picture of its own at that scale.
QImage drawn(std::string_view name, double scale) {
    constexpr int side = 24;
    QImage image(QSize(side, side) * scale, QImage::Format_ARGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    drawPicture(painter, QRect(0, 0, side, side), name);
    return image;
}

const auto states = {打印图::手选, 打印图::待打印, 打印图::已打印, 打印图::已存手选};

TEST(CellPictures, TellTheStatesApartAndKeepClearOfTheEdge) {
    for (const double scale : {1.0, 1.75, 2.0}) {
        std::vector<QImage> images{drawn("none", scale)};
        for (const auto name : states) {
            const QImage image = drawn(name, scale);
            for (const QImage& other : images) EXPECT_NE(image, other) << name << " " << scale;
            for (int i = 0; i < image.width(); ++i) {
                EXPECT_EQ(image.pixel(i, 0), qRgb(255, 255, 255));
                EXPECT_EQ(image.pixel(0, i), qRgb(255, 255, 255));
            }
            images.push_back(image);
        }
    }
}

TEST(CellPictures, StandEachInItsCell) {
    Form form;
    for (const auto name : {打印图::手选, 打印图::手选, 打印图::待打印, 打印图::手选})
        form.grid.setCellPicture(form.grid.addRow(), 1, name);
    form.grid.setSelection(GridSelection::row);
    form.grid.setCurrent(4, 0);
    const Person person(shown({&form.grid}));
    const auto& table = person.at<QTableView>(form.grid);
    const QImage seen = table.viewport()->grab().toImage();
    const auto in = [&](int row) {
        return seen.copy(table.visualRect(table.model()->index(row, 1)).adjusted(1, 1, -1, -1));
    };
    EXPECT_EQ(in(0), in(1));
    EXPECT_NE(in(2), in(1));
    EXPECT_NE(in(3), in(1)) << "marked";
}

}  // namespace
}  // namespace desk::desktop
