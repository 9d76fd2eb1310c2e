#include "desktop/layouts/unit_map.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QFrame>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "desktop/binding.h"
#include "desktop/come_and_go.h"
#include "desktop/layout.h"
#include "desktop/marker_binding.h"
#include "desktop/panel.h"

namespace desk::desktop {

using namespace layout;

namespace {

QWidget* legendEntry(Swatch& box, const char* meaning) {
    QWidget* colour = plain(box);
    // Five of them leave room for the buttons beside them on a small screen.
    colour->setFixedWidth(pixels(540));
    auto* entry = columns({colour, caption(meaning)}, {0, 0});
    entry->setContentsMargins(0, 0, 12, 0);
    return entry;
}

QWidget* legendOf(房源图例& legend) {
    return columns({legendEntry(legend.保留用房, "保留用房"), legendEntry(legend.未出租, "未出租"),
                    legendEntry(legend.已出租, "已出租"), legendEntry(legend.装修中, "装修中"),
                    legendEntry(legend.异常, "异常"), new QWidget},
                   {0, 0, 0, 0, 0, 1});
}

/// The map below it does not move when it comes and goes.
QWidget* hintOf(Label& hint) {
    QWidget* shown = plain(hint);
    QSizePolicy policy = shown->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    shown->setSizePolicy(policy);
    return shown;
}

QWidget* mapOf(Frm房源一览表& screen) {
    QWidget* map = plain(screen.地图, "房源图");
    auto* view = qobject_cast<QAbstractScrollArea*>(map);
    markerOver(view, screen.突出显示);
    showEach(view, screen.选中.标记, [view](房源标记& marker) { markerOver(view, marker); });
    return framed(screen.地图框, rows({hintOf(screen.提示), map}, {0, 1}));
}

QWidget* infoOf(房源信息& info) {
    auto* lines = fields({{"建筑面积：", info.建筑面积},
                          {"客户", info.客户},
                          {"", info.客户编号},
                          {"层次：", info.层次},
                          {"", info.装修},
                          {"", info.状态}});
    return atLeast(rows({lines, buttons({&info.关闭窗口})}, {1, 0}), 3600, 0);
}

/// One below the other, as their tops say. The wheel turns their bar.
class Tiles : public QWidget {
  public:
    Tiles(楼域统计面板& panel, QWidget* bar) : bar_(bar) {
        showEach(this, panel.块, [this](统计块& tile) { add(tile); });
    }

  protected:
    void resizeEvent(QResizeEvent*) override { widthIsNew_(); }
    void wheelEvent(QWheelEvent* event) override { QCoreApplication::sendEvent(bar_, event); }

  private:
    void add(统计块& tile) {
        auto* shown = new QFrame(this);
        shown->setFrameStyle(QFrame::StyledPanel);
        QWidget* pie = plain(tile.饼图);
        pie->setFixedWidth(pixels(pieWidth));
        auto* words = rows({new QWidget, plain(tile.标题), plain(tile.总面积), new QWidget}, {1, 0, 0, 1});
        auto* box = new QVBoxLayout(shown);
        box->setContentsMargins(1, 1, 1, 1);
        box->addWidget(columns({pie, words}, {0, 1}));
        bindCommon(tile, shown);
        goWith(tile, shown);
        const auto lay = [this, shown, &tile] {
            shown->setGeometry(0, pixels(tile.top()), width(), pixels(统计块::height));
        };
        lay();
        shown->show();
        follow(shown, tile.touched, lay);
        follow(shown, widthIsNew_, lay);
    }

    static constexpr double pieWidth = 2700;
    QWidget* bar_;
    Signal<> widthIsNew_;
};

QWidget* statisticsOf(楼域统计面板& panel) {
    QWidget* bar = plain(panel.滚动条, "统计信息");
    return framed(panel.框, columns({new Tiles(panel, bar), bar}, {1, 0}));
}

}  // namespace

QWidget* layoutOfUnitMap(Frm房源一览表& screen) {
    auto* head = columns({atMost(fields({{"区域", screen.区域}}), 6000), legendOf(screen.图例),
                          buttons({&screen.选择房源, &screen.房源选择确定, &screen.统计信息, &screen.关闭})},
                         {2, 3, 0});
    auto* whole = rows({head, mapOf(screen), statisticsOf(screen.统计), plain(screen.状态栏)}, {0, 1, 1, 0});
    whole->setContentsMargins(6, 6, 6, 4);
    panelOver(whole, screen.信息.面板, infoOf(screen.信息), FloatsAt::beside);
    return whole;
}

}  // namespace desk::desktop
