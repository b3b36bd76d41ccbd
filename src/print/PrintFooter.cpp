#include "print/PrintFooter.h"

#include "common/MessageTable.h"
#include "print/PrintCanvas.h"
#include "shell/VersionText.h"

namespace {
constexpr int FooterMsg = 4722;
constexpr double RuleLeftMm = 10;
}

QString PrintFooter::text() const
{
    return Msg(FooterMsg).arg(m_printedAt.toString(QStringLiteral("yyyy/MM/dd HH:mm")),
                              ProgramVersionText());
}

void PrintFooter::draw(PrintCanvas& canvas, double textTopMm, double ruleMm) const
{
    // Two blanks keep the text clear of the edge; the whole is measured so
    // that it ends where the rules end, whatever the language.
    const QString closing = QStringLiteral("  ") + text();
    const double rightEdge = canvas.metrics().gRightEdge;
    canvas.text(rightEdge - canvas.textWidth(closing), textTopMm, closing);
    canvas.rule(ruleMm, RuleLeftMm, rightEdge);
}
