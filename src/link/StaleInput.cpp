#include "link/StaleInput.h"

namespace {

const QString ErrorLineHead = QStringLiteral("0%%");
const QString CrLf = QStringLiteral("\r\n");

// The end of text from its last "0%%" on, or its last characters when they
// are the first ones of "0%%".
QString errorLineStartAtEnd(const QString& text)
{
    const qsizetype at = text.lastIndexOf(ErrorLineHead);
    if (at >= 0)
        return text.mid(at);
    for (qsizetype n = ErrorLineHead.size() - 1; n > 0; --n) {
        if (text.endsWith(ErrorLineHead.left(n)))
            return text.right(n);
    }
    return {};
}

} // namespace

StaleInput StaleInput::split(const QString& stale)
{
    StaleInput out;
    QStringList lines = stale.split(CrLf);
    const QString unfinished = lines.takeLast();
    for (const QString& line : lines) {
        const qsizetype at = line.indexOf(ErrorLineHead);
        if (at >= 0)
            out.errorLines << line.mid(at) + CrLf;
    }
    out.head = errorLineStartAtEnd(unfinished);
    return out;
}
