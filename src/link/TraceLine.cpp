#include "link/TraceLine.h"

QString TraceLine::format(qint64 elapsedMs, char direction, const QByteArray& frame, const QString& meaning)
{
    QString line = QStringLiteral("+%1.%2 %3")
                       .arg(elapsedMs / 1000)
                       .arg(elapsedMs % 1000, 3, 10, QLatin1Char('0'))
                       .arg(QLatin1Char(direction));
    if (!frame.isEmpty())
        line += u' ' + QString::fromLatin1(frame);
    if (!meaning.isEmpty())
        line += u'\t' + meaning;
    return line;
}
