#include "RecordedPage.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "print/PageMetrics.h"
#include "print/ParaPrintout.h"
#include "print/PrintCanvas.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QTest>

namespace {

const QDateTime PrintedAt(QDate(2024, 3, 5), QTime(14, 7));

// A complete set as the parameter page would hand it over.
PrintParaList fullList()
{
    PrintParaList list;
    list[0] = QStringLiteral("unit12.pmt");
    list[1] = 65535;
    list[2] = 30;
    list[3] = 5;
    list[4] = 1000;
    list[5] = 2;                       // a switch value without a text
    list[6] = QStringLiteral("ZZ");    // not a printed item
    list[7] = QStringLiteral("20E007");
    list[8] = 1;
    list[9] = 500;
    list[10] = 3;
    list[11] = QStringLiteral("10");
    list[12] = 20;
    list[13] = 0;
    list[14] = 255;
    list[15] = 0;
    list[16] = 1;
    return list;
}

int linePitchOf(QPaintDevice& device)
{
    PrintCanvas canvas(device);
    canvas.finish();
    return canvas.metrics().gLinePitch;
}

} // namespace

// Fonts need a GUI application, though nothing here is a widget.
class TestParaPrintout : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        ProgramState::reset();
        ProgramState::instance().gMsgBase = MessageTable::EnglishBase;
    }

    void sheetRows_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("value");
        QTest::newRow("title") << 1 << "QM-KTR  Parameters" << "";
        QTest::newRow("homing") << 4 << "<< HOMING PARAMETER >>" << "";
        QTest::newRow("offset") << 5 << " 1.OFFSET:" << "65535";
        QTest::newRow("vel") << 6 << " 2.VEL:" << "30";
        QTest::newRow("ofsvel") << 7 << " 3.OFSVEL:" << "5";
        QTest::newRow("axis") << 9 << "<< AXIS PARAMETER >>" << "";
        QTest::newRow("pulse") << 10 << " 1.PULSE:" << "1000";
        QTest::newRow("auto drive 2 has no text") << 11 << " 2.AUTO DRIVE:" << "2";
        QTest::newRow("motor 20 is SP") << 12 << " 3.MOTOR:" << "SP";
        QTest::newRow("pg") << 14 << "<< PG PARAMETER >>" << "";
        QTest::newRow("function") << 15 << " 1.FUNCTION:" << "1. With Encorder";
        QTest::newRow("alm") << 16 << " 2.ALM:" << "500";
        QTest::newRow("etc") << 18 << "<< Etc PARAMETER >>" << "";
        QTest::newRow("home out") << 19 << " 1. HOME OUT:" << "3. OUT1,2-ON";
        QTest::newRow("in-p wid") << 20 << " 2. IN-P WID:" << "10";
        QTest::newRow("sp") << 22 << "<< SP Parameter >>" << "";
        QTest::newRow("pg timer") << 23 << " 1. PG TIMER:" << "20";
        QTest::newRow("auto home") << 24 << " 2. AUTO HOME:" << "0. Disable";
        QTest::newRow("ls timer") << 25 << " 3. LS TIMER:" << "255";
        QTest::newRow("emg logic 0 is B") << 26 << " 4. EMG LOGIC:" << "Logic B(0)";
        QTest::newRow("alm1 clear") << 27 << " 5. ALM1 CLEAR:" << "1. Enable";
        QTest::newRow("empty rows") << 8 << "" << "";
    }
    void sheetRows()
    {
        QFETCH(int, row);
        RecordedPage page;
        const int pitch = linePitchOf(page);
        ParaPrintout(fullList(), PrintedAt).render(page);
        QTEST(page.at(row, 20, pitch), "label");
        QTEST(page.at(row, 80, pitch), "value");
    }

    void fileNameOnlyWhenPrintingAFile_data()
    {
        QTest::addColumn<bool>("fromFile");
        QTest::addColumn<QString>("expected");
        QTest::newRow("file") << true << "File Name:unit12.pmt";
        QTest::newRow("screen") << false << "";
    }
    void fileNameOnlyWhenPrintingAFile()
    {
        QFETCH(bool, fromFile);
        ProgramState::instance().gPrintFromFile = fromFile;
        RecordedPage page;
        const int pitch = linePitchOf(page);
        ParaPrintout(fullList(), PrintedAt).render(page);
        QTEST(page.at(1, 80, pitch), "expected");
    }

    void switchText_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("3") << QVariant(3) << "3. OUT1,2-ON";
        QTest::newRow("4 beyond the texts") << QVariant(4) << "4";
        QTest::newRow("negative") << QVariant(-1) << "-1";
        QTest::newRow("text with leading number") << QVariant("2x") << "2. OUT2-ON";
        QTest::newRow("fraction kept as text") << QVariant(3.6) << "3.6";
        QTest::newRow("too large for a switch") << QVariant(70000) << "70000";
        QTest::newRow("empty reads as 0") << QVariant(QString()) << "0. OUT-OFF";
    }
    void switchText()
    {
        QFETCH(QVariant, value);
        QTEST(ParaPrintout::switchText(value, {657, 658, 659, 660}), "expected");
    }

    void motorText_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("printed");
        QTest::newRow("28") << "28E007" << "28";
        QTest::newRow("special") << "20E001" << "SP";
        QTest::newRow("20 only as the first two") << "E20" << "E2";
    }
    void motorText()
    {
        QFETCH(QString, code);
        QTEST(ParaPrintout::motorText(code), "printed");
    }

    void printingKeepsTheMotorCode()
    {
        ProgramState::instance().gMotorCode = QStringLiteral("28");
        RecordedPage page;
        ParaPrintout(fullList(), PrintedAt).render(page);
        QCOMPARE(ProgramState::instance().gMotorCode, QStringLiteral("20"));
    }

    // The footer stands where the operation data sheet has it.
    void rulesAndFooter()
    {
        RecordedPage page;
        const int pitch = linePitchOf(page);
        ParaPrintout(fullList(), PrintedAt).render(page);
        QCOMPARE(page.lines.size(), 2);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(page.lines[i].x1(), 10.0);
            QCOMPARE(page.lines[i].x2(), 200.0);
            QCOMPARE(page.lines[i].y1(), page.lines[i].y2());
        }
        QCOMPARE(page.lines[0].y1(), 2.0 * pitch);
        const int pitch2 = pitch + 1;
        const int footerRow = 297 / pitch2 - 3;
        QCOMPARE(page.lines[1].y1(), double((footerRow + 1) * pitch2));
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

    void a4Metrics_data()
    {
        QTest::addColumn<int>("dpi");
        QTest::newRow("300 dpi") << 300;
        QTest::newRow("1200 dpi") << 1200;
    }
    void a4Metrics()
    {
        QFETCH(int, dpi);
        QByteArray sink;
        QBuffer buffer(&sink);
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setResolution(dpi);
        writer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, {}));
        PrintCanvas canvas(writer);
        const PageMetrics m = canvas.metrics();
        canvas.finish();
        // An 11-point line is about 4 to 6 mm, whatever the resolution.
        QVERIFY2(m.gLinePitch >= 4 && m.gLinePitch <= 6, qPrintable(QString::number(m.gLinePitch)));
        RecordedPage page;
        QCOMPARE(m.gLinePitch, linePitchOf(page));
        QCOMPARE(m.gRightEdge, 200);
    }

    void metricsArithmetic_data()
    {
        QTest::addColumn<double>("letter");
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("height");
        QTest::addColumn<QList<int>>("expected");  // pitch, pitch2, rows, rows2, right edge
        QTest::newRow("A4") << 3.88 << 210.0 << 297.0 << QList<int>{4, 5, 74, 59, 200};
        QTest::newRow("half rounds up to even") << 5.5 << 210.0 << 297.0 << QList<int>{6, 7, 49, 42, 200};
        QTest::newRow("A5 on a printable area") << 5.6 << 143.7 << 204.6 << QList<int>{6, 7, 34, 29, 134};
    }
    void metricsArithmetic()
    {
        QFETCH(double, letter);
        QFETCH(double, width);
        QFETCH(double, height);
        QFETCH(QList<int>, expected);
        const PageMetrics m = PageMetrics::compute(letter, width, height);
        QCOMPARE((QList<int>{m.gLinePitch, m.gLinePitch2, m.gPageRows, m.gPageRows2, m.gRightEdge}),
                 expected);
    }
};

QTEST_MAIN(TestParaPrintout)
#include "tst_paraprintout.moc"
