#include "desktop/link_binding.h"

#include <QAbstractButton>
#include <QPainter>
#include <QStyleOptionFocusRect>

#include "desktop/binding.h"
#include "desktop/pressed.h"

namespace desk::desktop {

namespace {

constexpr int margin = 4;

class LinkWidget : public Pressed<QAbstractButton> {
  public:
    explicit LinkWidget(bool isStrip) : isStrip_(isStrip) {
        setCursor(Qt::PointingHandCursor);
        setAttribute(Qt::WA_Hover);
        setSizePolicy(isStrip ? QSizePolicy::Fixed : QSizePolicy::Maximum,
                      isStrip ? QSizePolicy::Expanding : QSizePolicy::Fixed);
    }

    QSize sizeHint() const override {
        ensurePolished();
        return fontMetrics().size(0, words()) + QSize(2 * margin, isStrip_ ? 4 * margin : 2);
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (isStrip_) paintStrip(painter);
        QFont font = painter.font();
        font.setUnderline(!isStrip_ && underMouse());
        painter.setFont(font);
        painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled,
                                       isEnabled() ? QPalette::Link : QPalette::WindowText));
        painter.drawText(rect(), Qt::AlignCenter, words());
        if (!hasFocus()) return;
        QStyleOptionFocusRect ring;
        ring.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &ring, &painter, this);
    }

  private:
    /// Of a strip one sign below the other, and where it leads.
    QString words() const {
        if (!isStrip_) return text();
        QStringList signs;
        for (const QChar sign : text()) signs.append(sign);
        signs.append("»");
        return signs.join('\n');
    }

    void paintStrip(QPainter& painter) const {
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(palette().color(underMouse() ? QPalette::Light : QPalette::Button));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }

    bool isStrip_;
};

}  // namespace

QWidget* linkWidget(Link& link) {
    auto* shown = new LinkWidget(link.style() == LinkStyle::strip);
    const auto show = [&link, shown] { shown->setText(text(link.caption())); };
    show();
    follow(shown, link.touched, show);
    QObject::connect(shown, &QAbstractButton::clicked, shown, [&link] { enter([&] { link.click(); }); });
    return shown;
}

}  // namespace desk::desktop
