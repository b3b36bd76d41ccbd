#include "print/OpDataPrintout.h"

#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "print/PrintCanvas.h"
#include "print/PrintFooter.h"

#include <QList>

namespace {

constexpr double LabelX = 20;
constexpr double ValueX = 80;
constexpr double RuleLeftX = 10;
constexpr int TitleRow = 1;
constexpr int RuleRow = 2;

constexpr int TitleMsg = 4730;
constexpr int FileNameMsg = 25;
constexpr int ProposedFileMsg = 3006;
constexpr int NewGenerationMsg = 148;
constexpr int OldGenerationMsg = 149;
constexpr int ScreenSourceMsg = 4731;
constexpr int DegreesMsg = 4742;
constexpr int AmperesMsg = 4743;
constexpr int CwMsg = 4744;
constexpr int CcwMsg = 4745;

struct SheetRow {
    int row;
    int label;
    QString value = {};
};

} // namespace

OpDataPrintout::OpDataPrintout(const OpDataPrintData& data, const QDateTime& printedAt)
    : m_data(data)
    , m_printedAt(printedAt)
{
}

QString OpDataPrintout::sourceText() const
{
    if (!m_data.fromFile)
        return Msg(ScreenSourceMsg);
    const int generation = m_data.generation == OpDataPrintData::Generation::Old
        ? OldGenerationMsg
        : NewGenerationMsg;
    return Msg(FileNameMsg) + m_data.fileName + u' ' + Msg(generation);
}

QString OpDataPrintout::stepAngleText() const
{
    if (!IsNumeric(m_data.division))
        return {};
    const double divisions = ToNumber(m_data.division);
    if (divisions < 1 || divisions != qint64(divisions))
        return {};
    return Msg(DegreesMsg).arg(QString::number(360.0 / divisions, 'f', 3));
}

QString OpDataPrintout::directionText() const
{
    return Msg(m_data.ccw ? CcwMsg : CwMsg);
}

QString OpDataPrintout::currentText() const
{
    const QString current = m_data.current.trimmed();
    return current.isEmpty() ? QString() : Msg(AmperesMsg).arg(current);
}

QString OpDataPrintout::pdfFileName() const
{
    return pdfNameFor(m_data.fromFile ? m_data.fileName : Msg(ProposedFileMsg));
}

void OpDataPrintout::draw(PrintCanvas& canvas)
{
    drawHeading(canvas);
    drawSections(canvas);
    PrintFooter(m_printedAt).draw(canvas);
}

void OpDataPrintout::drawHeading(PrintCanvas& canvas) const
{
    const PageMetrics& m = canvas.metrics();
    canvas.text(LabelX, TitleRow * m.gLinePitch2, Msg(TitleMsg));
    canvas.text(ValueX, TitleRow * m.gLinePitch2,
                canvas.elided(sourceText(), m.gRightEdge - ValueX));
    canvas.rule(RuleRow * m.gLinePitch2, RuleLeftX, m.gRightEdge);
}

void OpDataPrintout::drawSections(PrintCanvas& canvas) const
{
    const QList<SheetRow> rows = {
        {4, 4732},
        {5, 4733, m_data.speedChoice},
        {6, 4734, m_data.vel},
        {7, 4735, m_data.acc},
        {8, 4736, directionText()},
        {9, 4737, m_data.division},
        {10, 4738, m_data.gear},
        {11, 4739, stepAngleText()},
        {13, 4740},
        {14, 4741, currentText()},
    };
    const int pitch = canvas.metrics().gLinePitch2;
    for (const SheetRow& row : rows) {
        canvas.text(LabelX, row.row * pitch, Msg(row.label));
        if (!row.value.trimmed().isEmpty())
            canvas.text(ValueX, row.row * pitch, row.value.trimmed());
    }
}
