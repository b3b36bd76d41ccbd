#include "PdfText.h"
#include "RecordedPage.h"

#include "common/MessageTable.h"
#include "common/ProgramState.h"
#include "print/OpDataPrintout.h"
#include "print/PdfPrinter.h"
#include "print/PrintCanvas.h"

#include <QTest>

namespace {

const QDateTime PrintedAt(QDate(2024, 3, 5), QTime(9, 41));

OpDataPrintData screenData()
{
    OpDataPrintData data;
    data.speedChoice = QStringLiteral("30");
    data.vel = QStringLiteral("9000");
    data.acc = QStringLiteral("1");
    data.division = QStringLiteral("12");
    data.gear = QStringLiteral("1");
    data.current = QStringLiteral("1.5");
    return data;
}

PageMetrics metricsOf(QPaintDevice& device)
{
    PrintCanvas canvas(device);
    canvas.finish();
    return canvas.metrics();
}

} // namespace

// Fonts need a GUI application, though nothing here is a widget.
class TestOpDataPrintout : public QObject {
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
        QTest::newRow("title") << 1 << "QM-KTR  Position Data" << "Data on screen";
        QTest::newRow("section") << 4 << "<< OPERATION DATA >>" << "";
        QTest::newRow("speed choice") << 5 << " 1.SPEED:" << "30";
        QTest::newRow("vel") << 6 << " 2.VEL:" << "9000";
        QTest::newRow("acc") << 7 << " 3.ACC:" << "1";
        QTest::newRow("direction") << 8 << " 4.DIRECTION:" << "CW";
        QTest::newRow("division") << 9 << " 5.DIVISION:" << "12";
        QTest::newRow("gear") << 10 << " 6.GEAR:" << "1";
        QTest::newRow("step angle") << 11 << " 7.STEP ANGLE:" << "30.000 deg";
        QTest::newRow("actuator") << 13 << "<< ACTUATOR >>" << "";
        QTest::newRow("current") << 14 << " 1.CURRENT:" << "1.5 A";
    }
    void sheetRows()
    {
        QFETCH(int, row);
        RecordedPage page;
        const int pitch = metricsOf(page).gLinePitch2;
        OpDataPrintout(screenData(), PrintedAt).render(page);
        QTEST(page.at(row, 20, pitch), "label");
        QTEST(page.at(row, 80, pitch), "value");
    }

    void source_data()
    {
        QTest::addColumn<bool>("fromFile");
        QTest::addColumn<bool>("old");
        QTest::addColumn<int>("msgBase");
        QTest::addColumn<QString>("expected");
        QTest::newRow("new file") << true << false << 10000 << "File Name:KTRdata.qmd (New)";
        QTest::newRow("old file, Japanese") << true << true << 0
                                            << "ファイル名：KTRdata.qmd (旧形式)";
    }
    void source()
    {
        QFETCH(bool, fromFile);
        QFETCH(bool, old);
        QFETCH(int, msgBase);
        ProgramState::instance().gMsgBase = msgBase;
        OpDataPrintData data = screenData();
        data.fromFile = fromFile;
        data.fileName = QStringLiteral("KTRdata.qmd");
        data.generation = old ? OpDataPrintData::Generation::Old : OpDataPrintData::Generation::New;
        QTEST(OpDataPrintout(data).sourceText(), "expected");
    }

    void longFileNameStaysOnThePage()
    {
        OpDataPrintData data = screenData();
        data.fromFile = true;
        data.fileName = QStringLiteral("commissioning-line-4-station-12-indexer-after-gear-change-final.qmd");
        RecordedPage page;
        const PageMetrics m = metricsOf(page);
        OpDataPrintout(data, PrintedAt).render(page);
        const QString shown = page.at(1, 80, m.gLinePitch2);
        QVERIFY2(shown.startsWith(QStringLiteral("File Name:comm")), qPrintable(shown));
        QVERIFY2(shown.endsWith(QStringLiteral(".qmd (New)")), qPrintable(shown));
        for (const RecordedPage::Text& t : page.texts)
            QVERIFY2(t.x + t.width <= m.gRightEdge + 0.2, qPrintable(t.text));
    }

    void directionAndEmptyValues()
    {
        OpDataPrintData data = screenData();
        data.ccw = true;
        data.current.clear();
        data.division.clear();
        RecordedPage page;
        const int pitch = metricsOf(page).gLinePitch2;
        OpDataPrintout(data, PrintedAt).render(page);
        QCOMPARE(page.at(8, 80, pitch), QStringLiteral("CCW"));
        QCOMPARE(page.row(9, pitch), QStringList{QStringLiteral(" 5.DIVISION:")});
        QCOMPARE(page.row(11, pitch), QStringList{QStringLiteral(" 7.STEP ANGLE:")});
        QCOMPARE(page.row(14, pitch), QStringList{QStringLiteral(" 1.CURRENT:")});
    }

    void stepAngle_data()
    {
        QTest::addColumn<QString>("division");
        QTest::addColumn<QString>("angle");
        QTest::newRow("7") << "7" << "51.429 deg";
        QTest::newRow("2") << " 2 " << "180.000 deg";
        QTest::newRow("zero") << "0" << "";
        QTest::newRow("fraction") << "2.5" << "";
        QTest::newRow("not a number") << "1x" << "";
    }
    void stepAngle()
    {
        QFETCH(QString, division);
        OpDataPrintData data = screenData();
        data.division = division;
        QTEST(OpDataPrintout(data).stepAngleText(), "angle");
    }

    void pdfReadsInOrder_data()
    {
        QTest::addColumn<int>("msgBase");
        QTest::newRow("English") << 10000;
        QTest::newRow("Japanese") << 0;
    }
    void pdfReadsInOrder()
    {
        QFETCH(int, msgBase);
        ProgramState::instance().gMsgBase = msgBase;
        OpDataPrintData data = screenData();
        data.fromFile = true;
        data.fileName = QStringLiteral("KTRdata.qmd");
        OpDataPrintout printout(data, PrintedAt);
        // A reader collapses runs of blanks, and may extract a CJK radical for
        // the ideograph sharing its glyph: compare simplified compatibility forms.
        const auto comparable = [](const QString& s) {
            return s.normalized(QString::NormalizationForm_KC).simplified();
        };
        const QString raw = pdfText(PdfPrinter::render(printout));
        const QString text = comparable(raw);
        QStringList order;
        for (int id : {4730, 25, 148, 4732, 4733})
            order << comparable(Msg(id));
        order << "30" << comparable(Msg(4734)) << "9000" << comparable(Msg(4735))
              << comparable(Msg(4736)) << "CW" << comparable(Msg(4737)) << "12"
              << comparable(Msg(4738)) << comparable(Msg(4739)) << "30.000"
              << comparable(Msg(4740)) << comparable(Msg(4741)) << "1.5 A" << "2024/03/05 09:41";
        QString missing;
        QVERIFY2(findInOrder(text, order, &missing) >= 0, qPrintable(missing + "\n" + text));
        QCOMPARE(raw.count(u'\f'), 1);
    }
};

QTEST_MAIN(TestOpDataPrintout)
#include "tst_opdataprintout.moc"
