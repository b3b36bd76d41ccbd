// The parameter and operation data sheets drawn on a page that records where
// each text and rule went, the page measures, and a sheet as a PDF reader
// extracts it.

#include "PdfText.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "print/OpDataPrintout.h"
#include "print/PageMetrics.h"
#include "print/ParaPrintout.h"
#include "print/PdfPrinter.h"
#include "print/PrintCanvas.h"

#include <QPaintEngine>
#include <QTest>

namespace {

// An A4 page at 300 dpi that keeps every text drawn on it (baseline and
// advance) and every line, in millimetres from its top-left corner.
class RecordedPage : public QPaintDevice {
public:
    struct Text {
        double x, baseline, width;
        QString text;
    };
    QList<Text> texts;
    QList<QLineF> lines;

    QPaintEngine* paintEngine() const override { return &m_engine; }

    // The text starting at xMm on a row pitch millimetres high: a text is
    // on the row its baseline falls in.
    QString at(int row, double xMm, int pitch) const
    {
        for (const Text& t : texts) {
            if (int(t.baseline / pitch) == row && qAbs(t.x - xMm) < 0.05)
                return t.text;
        }
        return {};
    }

    // Each row with text at the label column (20 mm) or the value column
    // (80 mm), as "row label|value".
    QStringList sheet(int pitch) const
    {
        QStringList rows;
        for (int row = 0; row * pitch < 297; ++row) {
            const QString label = at(row, 20, pitch);
            const QString value = at(row, 80, pitch);
            if (!label.isEmpty() || !value.isEmpty())
                rows << QStringLiteral("%1 %2|%3").arg(row).arg(label, value);
        }
        return rows;
    }

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
        case PdmWidth: return qRound(210 / 25.4 * Dpi);
        case PdmHeight: return qRound(297 / 25.4 * Dpi);
        case PdmWidthMM: return 210;
        case PdmHeightMM: return 297;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY: return Dpi;
        case PdmDevicePixelRatioScaled: return int(devicePixelRatioFScale());
        case PdmNumColors: return 2;
        default: return 1; // one bit deep, one device pixel per pixel
        }
    }

private:
    static constexpr int Dpi = 300;
    static double mm(double px) { return px * 25.4 / Dpi; }

    class Engine : public QPaintEngine {
    public:
        explicit Engine(RecordedPage& page)
            : QPaintEngine(AllFeatures)
            , m_page(page)
        {
        }
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
            for (const QLineF* l = lines; l != lines + count; ++l)
                m_page.lines.append({mm(l->x1()), mm(l->y1()), mm(l->x2()), mm(l->y2())});
        }
        Type type() const override { return User; }

    private:
        RecordedPage& m_page;
    };
    mutable Engine m_engine{*this};
};

const QDateTime PrintedAt(QDate(2024, 3, 5), QTime(14, 7));

OpDataPrintData screenData()
{
    return {.fromFile = false, .fileName = {}, .generation = OpDataPrintData::Generation::New, .speedChoice = "30", .vel = "9000", .acc = "1", .ccw = false, .division = "12", .gear = "1", .current = "1.5"};
}

// A complete set as the parameter page hands it over.
PrintParaList paraList()
{
    PrintParaList list;
    const QVariant values[] = {"unit12.pmt", 65535, 30, 5, 1000, 2, "ZZ", "20E007", 1, 500, 3, "10", 20, 0, 255, 0, 1};
    std::copy(std::begin(values), std::end(values), list.begin());
    return list;
}

PageMetrics metricsOf(QPaintDevice& device)
{
    PrintCanvas canvas(device);
    canvas.finish();
    return canvas.metrics();
}

} // namespace

// Fonts need a GUI application, though nothing here is a widget.
class TestPrintouts : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
    }

    void switchText_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("too large for a switch") << QVariant(70000) << "70000";
        QTest::newRow("empty reads as 0") << QVariant(QString()) << "0. OUT-OFF";
    }
    void switchText()
    {
        QFETCH(QVariant, value);
        QTEST(ParaPrintout::switchText(value, {657, 658, 659, 660}), "expected");
    }

    void motorSizeIsTheCodesStart() { QCOMPARE(ParaPrintout::motorText(QStringLiteral("E20")), QStringLiteral("E2")); }

    // The rules run across the page; the footer stands where the operation
    // data sheet has it.
    void paraSheet()
    {
        RecordedPage page;
        const int pitch = metricsOf(page).gLinePitch;
        QCOMPARE(pitch, 6); // as at 1200 dpi: the pitch is the font's, not the resolution's
        ParaPrintout(paraList(), false, PrintedAt).render(page);
        QCOMPARE(page.sheet(pitch), (QStringList{"1 QM-KTR  Parameters|", "4 << HOMING PARAMETER >>|", "5  1.OFFSET:|65535", "6  2.VEL:|30", "7  3.OFSVEL:|5", "9 << AXIS PARAMETER >>|", "10  1.PULSE:|1000", "11  2.AUTO DRIVE:|2", "12  3.MOTOR:|SP", "14 << PG PARAMETER >>|", "15  1.FUNCTION:|1. With Encorder", "16  2.ALM:|500", "18 << Etc PARAMETER >>|", "19  1. HOME OUT:|3. OUT1,2-ON", "20  2. IN-P WID:|10", "22 << SP Parameter >>|", "23  1. PG TIMER:|20", "24  2. AUTO HOME:|0. Disable", "25  3. LS TIMER:|255", "26  4. EMG LOGIC:|Logic B(0)", "27  5. ALM1 CLEAR:|1. Enable"}));
        const int pitch2 = pitch + 1;
        const int footerRow = 297 / pitch2 - 3;
        const double top = 2.0 * pitch;
        const double bottom = (footerRow + 1) * pitch2;
        QCOMPARE(page.lines, (QList<QLineF>{QLineF(10, top, 200, top), QLineF(10, bottom, 200, bottom)}));
        const QStringList footer = page.row(footerRow, pitch2);
        QCOMPARE(footer.size(), 1);
        QVERIFY(footer[0].startsWith(QStringLiteral("  Printed 2024/03/05 14:07")));
        QVERIFY(footer[0].contains(QStringLiteral("KTR-W5 Version ")));
        const RecordedPage::Text& text = *std::find_if(
            page.texts.cbegin(), page.texts.cend(),
            [&](const RecordedPage::Text& t) { return t.text == footer[0]; });
        QVERIFY2(qAbs(text.x + text.width - 200) < 0.2, "the footer ends at the right edge");
        QVERIFY(page.lines[1].y1() > text.baseline);
    }

    void metricsArithmetic_data()
    {
        QTest::addColumn<double>("letter");
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("height");
        QTest::addColumn<QList<int>>("expected"); // pitch, pitch2, rows, rows2, right edge
        QTest::newRow("half rounds up to even") << 5.5 << 210.0 << 297.0 << QList<int>{6, 7, 49, 42, 200};
        QTest::newRow("A5 on a printable area") << 5.6 << 143.7 << 204.6 << QList<int>{6, 7, 34, 29, 134};
    }
    void metricsArithmetic()
    {
        QFETCH(double, letter);
        QFETCH(double, width);
        QFETCH(double, height);
        const PageMetrics m = PageMetrics::compute(letter, width, height);
        QTEST((QList<int>{m.gLinePitch, m.gLinePitch2, m.gPageRows, m.gPageRows2, m.gRightEdge}), "expected");
    }

    void opDataSheet()
    {
        RecordedPage page;
        const int pitch = metricsOf(page).gLinePitch2;
        OpDataPrintout(screenData(), PrintedAt).render(page);
        QCOMPARE(page.sheet(pitch), (QStringList{"1 QM-KTR  Position Data|Data on screen", "4 << OPERATION DATA >>|", "5  1.SPEED:|30", "6  2.VEL:|9000", "7  3.ACC:|1", "8  4.DIRECTION:|CW", "9  5.DIVISION:|12", "10  6.GEAR:|1", "11  7.STEP ANGLE:|30.000 deg", "13 << ACTUATOR >>|", "14  1.CURRENT:|1.5 A"}));
    }

    // A long file name stays on the page; empty values print nothing after
    // their labels.
    void fileSheetWithALongNameAndEmptyValues()
    {
        OpDataPrintData data = screenData();
        data.fromFile = true;
        data.fileName = QStringLiteral("commissioning-line-4-station-12-indexer-after-gear-change-final.qmd");
        data.current.clear();
        data.division.clear();
        RecordedPage page;
        const PageMetrics m = metricsOf(page);
        OpDataPrintout(data, PrintedAt).render(page);
        const QString shown = page.at(1, 80, m.gLinePitch2);
        QVERIFY2(shown.startsWith(QStringLiteral("File Name:comm")), qPrintable(shown));
        QVERIFY2(shown.endsWith(QStringLiteral(".qmd (New)")), qPrintable(shown));
        for (const RecordedPage::Text& t : page.texts)
            QVERIFY2(t.x + t.width <= m.gRightEdge + 0.2, qPrintable(t.text));
        QCOMPARE(page.row(11, m.gLinePitch2), QStringList{QStringLiteral(" 7.STEP ANGLE:")});
        QCOMPARE(page.row(14, m.gLinePitch2), QStringList{QStringLiteral(" 1.CURRENT:")});
    }

    void stepAngle_data()
    {
        QTest::addColumn<QString>("division");
        QTest::addColumn<QString>("angle");
        QTest::newRow("7") << "7" << QStringLiteral("51.429 deg");
        QTest::newRow("fraction") << "2.5" << QString();
    }
    void stepAngle()
    {
        OpDataPrintData data = screenData();
        QFETCH(QString, division);
        data.division = division;
        QTEST(OpDataPrintout(data).stepAngleText(), "angle");
    }

    // The Japanese sheet survives in the PDF: fonts embedded with their
    // character maps, the old file format named, one page.
    void japanesePdfReadsInOrder()
    {
        ProgramState::instance().gMsgBase = 0;
        OpDataPrintData data = screenData();
        data.fromFile = true;
        data.fileName = QStringLiteral("KTRdata.qmd");
        data.generation = OpDataPrintData::Generation::Old;
        // A reader collapses runs of blanks, and may extract a CJK radical for
        // the ideograph sharing its glyph: compare simplified compatibility forms.
        const auto comparable = [](const QString& s) {
            return s.normalized(QString::NormalizationForm_KC).simplified();
        };
        OpDataPrintout printout(data, PrintedAt);
        const QString raw = pdfText(PdfPrinter::render(printout));
        QStringList order;
        // Labels by message id, values as printed, in reading order.
        for (const QVariant& piece : QVariantList{4730, 25, 149, 4732, 4733, "30", 4734, "9000", 4735, 4736, "CW", 4737, "12", 4738, 4739, "30.000", 4740, 4741, "1.5 A", "2024/03/05 14:07"})
            order << comparable(piece.typeId() == QMetaType::Int ? Msg(piece.toInt()) : piece.toString());
        QString missing;
        QVERIFY2(findInOrder(comparable(raw), order, &missing) >= 0, qPrintable(missing + "\n" + raw));
        QCOMPARE(raw.count(u'\f'), 1);
    }
};

QTEST_MAIN(TestPrintouts)
#include "tst_printouts.moc"
