#include "desktop/layouts/session.h"

#include <QHBoxLayout>
#include <QLinearGradient>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/binding.h"
#include "desktop/layout.h"

namespace desk::desktop {

namespace {

/// The picture behind the login: a skyline at dusk, with the name of the product.
class LoginPicture : public QWidget {
  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QLinearGradient sky(0, 0, 0, height());
        sky.setColorAt(0, QColor(22, 52, 92));
        sky.setColorAt(1, QColor(96, 146, 190));
        painter.fillRect(rect(), sky);
        painter.setPen(Qt::NoPen);
        constexpr int towers[] = {34, 58, 42, 74, 50, 66, 38, 80, 46, 60, 36, 54};
        const double step = width() / 12.0;
        for (int i = 0; i < 12; ++i) {
            const double top = height() - towers[i] * height() / 130.0;
            painter.setBrush(QColor(18, 42, 76, 150 + i % 3 * 35));
            painter.drawRect(QRectF(i * step, top, step - 2, height() - top));
        }
        QFont big = font();
        big.setPixelSize(30);
        big.setBold(true);
        painter.setFont(big);
        painter.setPen(Qt::white);
        painter.drawText(QRect(24, 18, width() - 48, 40), Qt::AlignLeft | Qt::AlignVCenter, "鸿序楼台");
        QFont small = font();
        small.setPixelSize(15);
        painter.setFont(small);
        painter.drawText(QRect(24, 58, width() - 48, 24), Qt::AlignLeft | Qt::AlignVCenter, "引驻台账");
    }
};

}  // namespace

QWidget* layoutOfLogin(FrmLogin& screen) {
    using namespace layout;
    auto* picture = new LoginPicture;
    picture->setFixedHeight(110);
    auto* entry = rows({fields({{"工    号", screen.TxtUser}, {"密    码", screen.txtPassword}}),
                        buttons({&screen.cmdOK, &screen.cmdCancel}), plain(screen.Label2),
                        plain(screen.List1, "岗位"), plain(screen.选择提示)},
                       {0, 0, 0, 1, 0});
    auto* whole = new QWidget;
    auto* box = new QVBoxLayout(whole);
    box->setContentsMargins(0, 0, 0, 6);
    box->addWidget(picture);
    auto* margin = new QHBoxLayout;
    margin->setContentsMargins(70, 14, 70, 0);
    margin->addWidget(entry);
    box->addLayout(margin, 1);
    auto* version = new QHBoxLayout;
    version->setContentsMargins(0, 0, 10, 0);
    version->addStretch(1);
    version->addWidget(plain(screen.Label1));
    box->addLayout(version);
    return whole;
}

QWidget* layoutOfAbout(FrmAbout& screen) {
    using namespace layout;
    auto* title = plain(screen.lblTitle);
    QFont big = title->font();
    big.setPointSize(18);
    big.setBold(true);
    title->setFont(big);
    auto* text =
        rows({title, plain(screen.lblVersion), plain(screen.lblDescription), new QWidget}, {0, 0, 0, 1});
    auto* whole = rows({text, buttons({&screen.cmdOK, &screen.cmdSysInfo})}, {1, 0});
    whole->setContentsMargins(16, 16, 16, 16);
    return whole;
}

}  // namespace desk::desktop
