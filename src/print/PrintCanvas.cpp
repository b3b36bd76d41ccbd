#include "print/PrintCanvas.h"

#include "print/PrintFont.h"

#include <QPagedPaintDevice>

namespace {
constexpr double MmPerInch = 25.4;
constexpr double RuleWidthMm = 0.25;
} // namespace

PrintCanvas::PrintCanvas(QPaintDevice& device)
    : m_painter(&device)
    , m_paged(dynamic_cast<QPagedPaintDevice*>(&device))
    , m_pxPerMmX(device.logicalDpiX() / MmPerInch)
    , m_pxPerMmY(device.logicalDpiY() / MmPerInch)
{
    if (!started())
        return;
    m_painter.setFont(PrintFont::make());
    m_painter.setPen(QPen(Qt::black, RuleWidthMm * m_pxPerMmY));
    // The height of a line of text is the text extent of "A".
    const double lineHeight = fontMetrics().height() / m_pxPerMmY;
    m_metrics = PageMetrics::compute(lineHeight, device.width() / m_pxPerMmX,
                                     device.height() / m_pxPerMmY);
}

QPointF PrintCanvas::toDevice(double xMm, double yMm) const
{
    return {xMm * m_pxPerMmX, yMm * m_pxPerMmY};
}

void PrintCanvas::text(double xMm, double yMm, const QString& text)
{
    const double ascent = fontMetrics().ascent();
    m_painter.drawText(toDevice(xMm, yMm) + QPointF(0, ascent), text);
}

void PrintCanvas::rule(double yMm, double fromXMm, double toXMm)
{
    m_painter.drawLine(toDevice(fromXMm, yMm), toDevice(toXMm, yMm));
}

double PrintCanvas::textWidth(const QString& text) const
{
    return fontMetrics().horizontalAdvance(text) / m_pxPerMmX;
}

bool PrintCanvas::newPage()
{
    return m_paged && m_paged->newPage();
}

bool PrintCanvas::finish()
{
    return m_painter.end();
}

QString PrintCanvas::elided(const QString& text, double widthMm) const
{
    return fontMetrics().elidedText(text, Qt::ElideMiddle, widthMm * m_pxPerMmX);
}
