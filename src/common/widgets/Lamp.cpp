#include "common/widgets/Lamp.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRadialGradient>

Lamp::Lamp(Color color, QWidget* parent)
    : QWidget(parent)
    , m_color(color)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Lamp::setOn(bool on)
{
    if (m_on == on)
        return;
    m_on = on;
    update();
}

void Lamp::setClickable(bool clickable)
{
    m_clickable = clickable;
    setCursor(clickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
    setFocusPolicy(clickable ? Qt::StrongFocus : Qt::NoFocus);
}

void Lamp::setSizeInLines(qreal lines)
{
    m_lines = lines;
    updateGeometry();
}

// Measured in lines of text, so the lamp grows with the font.
QSize Lamp::sizeHint() const
{
    const int d = qRound(fontMetrics().height() * m_lines);
    return {d, d};
}

QSize Lamp::minimumSizeHint() const
{
    return sizeHint();
}

QColor Lamp::litColor() const
{
    switch (m_color) {
    case Color::Red: return QColor(0xe5, 0x28, 0x1f);
    case Color::Green: return QColor(0x2e, 0xc4, 0x3a);
    case Color::Yellow: return QColor(0xf5, 0xd0, 0x1e);
    case Color::Orange: return QColor(0xf5, 0x8a, 0x1e);
    }
    return Qt::gray;
}

void Lamp::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal side = qMin(width(), height()) - 2.0;
    const QRectF r((width() - side) / 2, (height() - side) / 2, side, side);

    const QColor base = litColor();
    const QColor face = m_on ? base : base.darker(300);
    QRadialGradient glass(r.center() - QPointF(side / 6, side / 6), side * 0.7);
    glass.setColorAt(0.0, m_on ? base.lighter(170) : face.lighter(160));
    glass.setColorAt(0.6, face);
    glass.setColorAt(1.0, face.darker(140));

    p.setPen(QPen(palette().color(QPalette::Dark), 1.0));
    p.setBrush(glass);
    p.drawEllipse(r);
    if (hasFocus()) {
        p.setPen(QPen(palette().color(QPalette::Highlight), 1.5, Qt::DotLine));
        p.setBrush(Qt::NoBrush);
        p.drawEllipse(r.adjusted(-0.5, -0.5, 0.5, 0.5));
    }
    if (!isEnabled()) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(255, 255, 255, 90));
        p.drawEllipse(r);
    }
}

void Lamp::mousePressEvent(QMouseEvent* event)
{
    m_pressed = m_clickable && event->button() == Qt::LeftButton;
    event->setAccepted(m_pressed);
}

void Lamp::mouseReleaseEvent(QMouseEvent* event)
{
    const bool click = m_pressed && rect().contains(event->position().toPoint());
    m_pressed = false;
    if (click)
        emit clicked();
}

void Lamp::keyPressEvent(QKeyEvent* event)
{
    if (m_clickable && event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
        emit clicked();
        return;
    }
    QWidget::keyPressEvent(event);
}
