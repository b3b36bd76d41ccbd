#include "record/ReportPrintout.h"

#include "common/MessageTable.h"
#include "print/PrintCanvas.h"
#include "print/PrintFooter.h"
#include "record/JournalText.h"

#include <QLocale>
#include <QRegularExpression>

namespace {

constexpr double LeftX = 20;
constexpr double ValueX = 75;
constexpr double StandardX = 120;
constexpr double MarkX = 160;
constexpr double RuleLeftX = 10;
constexpr double WideTextMm = 120;
constexpr double LampStepMm = 24;
constexpr double ColumnStepMm = 60;
constexpr int TitleRow = 1;
constexpr int RuleRow = 2;
constexpr int FirstRow = 4;
// Rows kept free above the footer.
constexpr int FooterRows = 5;

constexpr int Title = 5650;
constexpr int DateTime = 5651;
constexpr int PortLabel = 5652;
constexpr int UnitLabel = 5653;
constexpr int VersionLabel = 5654;
constexpr int ActuatorLabel = 5655;
constexpr int NoteLabel = 5656;
constexpr int ParametersTitle = 5657;
constexpr int ParameterHead = 5658;
constexpr int ValueHead = 5659;
constexpr int StandardHead = 5660;
constexpr int Legend = 5661;
constexpr int CurrentLabel = 5662;
constexpr int OpDataTitle = 5663;
constexpr int IoTitle = 5664;
constexpr int LampLegend = 5665;
constexpr int JournalTitle = 5666;
constexpr int NoEntries = 5667;
constexpr int CommissionedBy = 5670;
constexpr int AcceptedBy = 5671;
constexpr int DateLabel = 5672;
constexpr int PageOf = 5673;

const QString NoStandard = QStringLiteral("-");
const QString Differs = QStringLiteral("*");
const QString Blank = QStringLiteral("____________________");
const QString ShortBlank = QStringLiteral("____________");

using Cell = ReportPrintout::Cell;
using Row = ReportPrintout::Row;
using Block = ReportPrintout::Block;

QString timeText(const QDateTime& time)
{
    return time.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

Block heading(const ReportData& d)
{
    Block block = {
        {{LeftX, Msg(DateTime)}, {ValueX, timeText(d.readAt)}},
        {{LeftX, Msg(PortLabel)}, {ValueX, d.port}},
        {{LeftX, Msg(UnitLabel)}, {ValueX, d.unit, WideTextMm}},
        {{LeftX, Msg(VersionLabel)}, {ValueX, d.controllerVersion + QStringLiteral("  (") + d.controllerType + u')'}},
        {{LeftX, Msg(ActuatorLabel)}, {ValueX, d.actuatorSize + QStringLiteral("  ") + d.motorCode}},
    };
    if (!d.note.isEmpty())
        block << Row{{LeftX, Msg(NoteLabel)}, {ValueX, d.note, WideTextMm}};
    return block;
}

QList<Block> parameters(const ReportData& d)
{
    QList<Block> blocks{{{}, {{LeftX, Msg(ParametersTitle)}}, {{LeftX, Msg(ParameterHead)}, {ValueX, Msg(ValueHead)}, {StandardX, Msg(StandardHead)}}}};
    for (const ReportParameter& p : d.parameters) {
        const QString standard = p.standard.isValid() ? p.standard.toString() : NoStandard;
        blocks << Block{{{LeftX, p.name}, {ValueX, p.value.toString()}, {StandardX, standard}, {MarkX, p.differs() ? Differs : QString()}}};
    }
    blocks << Block{{{LeftX, Msg(Legend)}}};
    if (d.currentAmperes)
        blocks << Block{{{LeftX, Msg(CurrentLabel)}, {ValueX, QString::number(*d.currentAmperes, 'f', 2) + QStringLiteral(" A")}}};
    return blocks;
}

Block opData(const ReportData& d)
{
    const ReportOpData& o = d.opData;
    const QStringList items = {QStringLiteral("VEL: %1").arg(o.vel), QStringLiteral("ACC: %1").arg(o.acc),
                               o.ccw ? QStringLiteral("DIR: CCW") : QStringLiteral("DIR: CW"),
                               QStringLiteral("DIVISION: %1").arg(o.division), QStringLiteral("GEAR: %1").arg(o.gear),
                               QStringLiteral("SPEED: %1").arg(o.speedChoice)};
    Block block{{}, {{LeftX, Msg(OpDataTitle)}}, {}, {}};
    for (qsizetype i = 0; i < items.size(); ++i)
        block[2 + i / 3] << Cell{LeftX + double(i % 3) * ColumnStepMm, items[i]};
    return block;
}

Block lamps(const ReportData& d)
{
    Row row;
    for (IoLamp lamp : AllIoLamps) {
        const bool on = d.lamps[size_t(IoBits::index(lamp))];
        row << Cell{LeftX + IoBits::index(lamp) * LampStepMm,
                    (on ? QStringLiteral("● ") : QStringLiteral("○ ")) + IoBits::label(lamp)};
    }
    return {{}, {{LeftX, Msg(IoTitle)}}, row, {{LeftX, Msg(LampLegend)}}};
}

QList<Block> journal(const ReportData& d)
{
    QList<Block> blocks{{{}, {{LeftX, Msg(JournalTitle)}}}};
    if (d.journal.isEmpty())
        blocks.last() << Row{{LeftX, Msg(NoEntries)}};
    for (const JournalEntry& e : d.journal) {
        blocks << Block{{{LeftX, timeText(e.time)}, {ValueX, JournalText::actionName(e.action)}, {StandardX, JournalText::outcome(e), 30}, {MarkX - 20, JournalText::writtenShort(e.written), 60}}};
    }
    return blocks;
}

Block signOff()
{
    const auto line = [](int label) {
        return Row{{LeftX, Msg(label)}, {ValueX, Blank}, {StandardX + 10, Msg(DateLabel)}, {MarkX, ShortBlank}};
    };
    return {{}, {}, line(CommissionedBy), {}, {}, line(AcceptedBy)};
}

} // namespace

ReportPrintout::ReportPrintout(ReportData data, QPageSize::PageSizeId paper, const QDateTime& printedAt)
    : m_data(std::move(data))
    , m_paper(paper)
    , m_printedAt(printedAt)
{
}

QPageSize::PageSizeId ReportPrintout::defaultPaper()
{
    const QLocale::Territory country = QLocale::system().territory();
    return country == QLocale::UnitedStates || country == QLocale::Canada ? QPageSize::Letter : QPageSize::A4;
}

std::optional<QPageSize::PageSizeId> ReportPrintout::paperNamed(const QString& name)
{
    if (name.compare(QStringLiteral("a4"), Qt::CaseInsensitive) == 0)
        return QPageSize::A4;
    if (name.compare(QStringLiteral("letter"), Qt::CaseInsensitive) == 0)
        return QPageSize::Letter;
    return std::nullopt;
}

// The unit and the day, with what a file name cannot hold replaced.
QString ReportPrintout::pdfFileName() const
{
    static const QRegularExpression unsafe(QStringLiteral("[\\\\/:*?\"<>|\\s]+"));
    QString unit = m_data.unit;
    unit.replace(unsafe, QStringLiteral("_"));
    const QString day = m_data.readAt.toString(QStringLiteral("yyyyMMdd"));
    return QStringLiteral("report-") + (unit.isEmpty() ? QString() : unit + u'-') + day + QStringLiteral(".pdf");
}

QList<Block> ReportPrintout::blocks() const
{
    QList<Block> all{heading(m_data)};
    all << parameters(m_data) << opData(m_data) << lamps(m_data) << journal(m_data) << signOff();
    return all;
}

QList<QList<Row>> ReportPrintout::pages(int rowsPerPage) const
{
    QList<QList<Row>> pages{{}};
    for (const Block& block : blocks()) {
        const bool fits = pages.last().size() + block.size() <= rowsPerPage;
        if (!fits && !pages.last().isEmpty())
            pages << QList<Row>{};
        for (const Row& row : block) {
            if (pages.last().size() == rowsPerPage)
                pages << QList<Row>{};
            if (!pages.last().isEmpty() || !row.isEmpty())
                pages.last() << row;
        }
    }
    return pages;
}

void ReportPrintout::draw(PrintCanvas& canvas)
{
    const PageMetrics& m = canvas.metrics();
    const int footerTop = (m.gPageRows2 - FooterRows) * m.gLinePitch2;
    const int rowsPerPage = qMax(1, footerTop / qMax(1, m.gLinePitch) - FirstRow);
    const QList<QList<Row>> sheets = pages(rowsPerPage);
    for (qsizetype page = 0; page < sheets.size(); ++page) {
        if (page > 0 && !canvas.newPage())
            return;
        drawHeading(canvas, int(page) + 1, int(sheets.size()));
        int row = FirstRow;
        for (const Row& cells : sheets[page]) {
            for (const Cell& cell : cells) {
                const QString text = cell.widthMm > 0 ? canvas.elided(cell.text, cell.widthMm) : cell.text;
                canvas.text(cell.xMm, row * m.gLinePitch, text);
            }
            ++row;
        }
        PrintFooter(m_printedAt).draw(canvas);
    }
}

void ReportPrintout::drawHeading(PrintCanvas& canvas, int page, int pageCount) const
{
    const PageMetrics& m = canvas.metrics();
    canvas.text(LeftX, TitleRow * m.gLinePitch, Msg(Title));
    const QString number = Msg(PageOf).arg(page).arg(pageCount);
    canvas.text(m.gRightEdge - canvas.textWidth(number), TitleRow * m.gLinePitch, number);
    canvas.rule(RuleRow * m.gLinePitch, RuleLeftX, m.gRightEdge);
}
