#include "print/PrintFooter.h"

#include "common/MessageTable.h"
#include "common/VersionText.h"
#include "print/PrintCanvas.h"

namespace {
constexpr int FooterMsg = 4722;
constexpr double RuleLeftMm = 10;
// The footer sits at the foot of the page, above a short bottom margin,
// counted in the looser line pitch.
constexpr int FooterRowsFromBottom = 3;
} // namespace

QString PrintFooter::text() const
{
    return Msg(FooterMsg).arg(m_printedAt.toString(QStringLiteral("yyyy/MM/dd HH:mm")),
                              ProgramVersionText());
}

void PrintFooter::draw(PrintCanvas& canvas) const
{
    const PageMetrics& m = canvas.metrics();
    const int row = m.gPageRows2 - FooterRowsFromBottom;
    // Two blanks keep the text clear of the edge; the whole is measured so
    // that it ends where the rules end, whatever the language.
    const QString closing = QStringLiteral("  ") + text();
    canvas.text(m.gRightEdge - canvas.textWidth(closing), row * m.gLinePitch2, closing);
    canvas.rule((row + 1) * m.gLinePitch2, RuleLeftMm, m.gRightEdge);
}
