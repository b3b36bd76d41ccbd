#pragma once

#include "print/PageMetrics.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPointF>
#include <QString>

class QPaintDevice;
class QPagedPaintDevice;

// A page seen in millimetres from its top-left corner, written in the
// printout font. Text is placed by the top of its line, as a print position
// is; the painter itself stays in device units so the font keeps its size.
class PrintCanvas {
public:
    explicit PrintCanvas(QPaintDevice& device);

    // False when the device would not open for drawing (a printer that is
    // not there); nothing can be drawn then.
    bool started() const { return m_painter.isActive(); }

    const PageMetrics& metrics() const { return m_metrics; }

    void text(double xMm, double yMm, const QString& text);
    void rule(double yMm, double fromXMm, double toXMm);
    double textWidth(const QString& text) const;
    // The text shortened in its middle to fit the width.
    QString elided(const QString& text, double widthMm) const;

    // Ends this sheet and starts the next, measured as the first. False on a
    // device without pages, or one that refused the sheet.
    bool newPage();

    // Sends the page: nothing may be drawn after this. False when the
    // device failed to take it.
    bool finish();

private:
    QPointF toDevice(double xMm, double yMm) const;
    QFontMetricsF fontMetrics() const { return {m_painter.font(), m_painter.device()}; }

    QPainter m_painter;
    QPagedPaintDevice* m_paged = nullptr;
    double m_pxPerMmX = 1;
    double m_pxPerMmY = 1;
    PageMetrics m_metrics;
};
