#include "shell/widgets/AppIcon.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

QPixmap AppIcon::pixmap(int size, qreal devicePixelRatio)
{
    QPixmap pm(QSize(size, size) * devicePixelRatio);
    pm.setDevicePixelRatio(devicePixelRatio);
    pm.fill(Qt::transparent);

    QPainter p(&pm);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal s = size;
    const QPointF c(s / 2, s / 2);

    // Table.
    p.setPen(QPen(QColor(0x1d, 0x4f, 0x86), s / 32));
    p.setBrush(QColor(0x2a, 0x6e, 0xb5));
    p.drawEllipse(c, s * 0.44, s * 0.44);

    // Index stations.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xf2, 0xf6, 0xfb));
    constexpr int stations = 8;
    for (int i = 0; i < stations; ++i) {
        const qreal a = 2 * M_PI * i / stations;
        p.drawEllipse(c + QPointF(qCos(a), qSin(a)) * s * 0.32, s * 0.055, s * 0.055);
    }

    // Direction of indexing.
    QPainterPath arc;
    const QRectF r(c.x() - s * 0.18, c.y() - s * 0.18, s * 0.36, s * 0.36);
    arc.arcMoveTo(r, 120);
    arc.arcTo(r, 120, -240);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(0xf5, 0x8a, 0x1e), s / 14, Qt::SolidLine, Qt::RoundCap));
    p.drawPath(arc);
    const QPointF tip = arc.currentPosition();
    QPolygonF head;
    head << tip + QPointF(-s * 0.10, -s * 0.02) << tip + QPointF(s * 0.06, -s * 0.07)
         << tip + QPointF(s * 0.02, s * 0.10);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0xf5, 0x8a, 0x1e));
    p.drawPolygon(head);

    // Hub.
    p.setBrush(QColor(0xf2, 0xf6, 0xfb));
    p.drawEllipse(c, s * 0.06, s * 0.06);
    return pm;
}

QIcon AppIcon::icon()
{
    QIcon icon;
    for (int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(pixmap(size, 1.0));
    return icon;
}
