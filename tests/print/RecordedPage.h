#pragma once

#include <QLineF>
#include <QList>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPointF>
#include <QString>
#include <QStringList>

// An A4 page at 300 dpi that keeps what was drawn on it: every piece of
// text with its baseline position and advance, and every line, in
// millimetres from the page's top-left corner.
class RecordedPage : public QPaintDevice {
public:
    struct Text {
        double x;
        double baseline;
        double width;
        QString text;
    };

    static constexpr int Dpi = 300;
    static constexpr double WidthMm = 210;
    static constexpr double HeightMm = 297;

    QList<Text> texts;
    QList<QLineF> lines;

    QPaintEngine* paintEngine() const override { return &m_engine; }

    // The text that starts at xMm on the given row, rows being pitch
    // millimetres high from the top of the page: a text belongs to the row
    // its baseline falls in. Pieces drawn one after the other (the painter
    // splits a line where the script changes) are joined.
    QString at(int row, double xMm, int pitch) const
    {
        QString found;
        double x = xMm;
        for (bool more = true; more;) {
            more = false;
            for (const Text& t : texts) {
                if (int(t.baseline / pitch) == row && qAbs(t.x - x) < 0.05) {
                    found += t.text;
                    x = t.x + t.width;
                    more = t.width > 0;
                    break;
                }
            }
        }
        return found;
    }

    // Every text that is drawn anywhere on the row.
    QStringList row(int row, int pitch) const
    {
        QStringList found;
        for (const Text& t : texts) {
            if (int(t.baseline / pitch) == row)
                found << t.text;
        }
        return found;
    }

protected:
    int metric(PaintDeviceMetric m) const override
    {
        switch (m) {
        case PdmWidth: return qRound(WidthMm / 25.4 * Dpi);
        case PdmHeight: return qRound(HeightMm / 25.4 * Dpi);
        case PdmWidthMM: return int(WidthMm);
        case PdmHeightMM: return int(HeightMm);
        case PdmDpiX: case PdmDpiY: case PdmPhysicalDpiX: case PdmPhysicalDpiY: return Dpi;
        case PdmNumColors: return 2;
        case PdmDepth: return 1;
        case PdmDevicePixelRatio: return 1;
        case PdmDevicePixelRatioScaled: return int(devicePixelRatioFScale());
        }
        return 0;
    }

private:
    static double mm(double px) { return px * 25.4 / Dpi; }

    class Engine : public QPaintEngine {
    public:
        explicit Engine(RecordedPage& page) : QPaintEngine(AllFeatures), m_page(page) {}
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawTextItem(const QPointF& p, const QTextItem& item) override
        {
            m_page.texts.append({mm(p.x()), mm(p.y()), mm(item.width()), item.text()});
        }
        void drawLines(const QLineF* lines, int count) override
        {
            for (int i = 0; i < count; ++i)
                m_page.lines.append({mm(lines[i].x1()), mm(lines[i].y1()),
                                     mm(lines[i].x2()), mm(lines[i].y2())});
        }
        Type type() const override { return User; }

    private:
        RecordedPage& m_page;
    };

    mutable Engine m_engine{*this};
};
