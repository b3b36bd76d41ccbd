#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

// The text of a PDF as a reader extracts it (pdftotext, keeping the layout),
// so a test sees what survives in the file: fonts embedded with their
// character maps, one page, the lines in order.
inline QString pdfText(const QByteArray& pdf)
{
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {"-layout", "-enc", "UTF-8", "-", "-"});
    reader.write(pdf);
    reader.closeWriteChannel();
    if (!reader.waitForFinished() || reader.exitStatus() != QProcess::NormalExit || reader.exitCode() != 0)
        return {};
    return QString::fromUtf8(reader.readAllStandardOutput());
}

// Where each expected piece is found, each after the one before; -1 from the
// first piece that is missing or out of order.
inline qsizetype findInOrder(const QString& text, const QStringList& pieces, QString* missing)
{
    qsizetype from = 0;
    for (const QString& piece : pieces) {
        const qsizetype at = text.indexOf(piece, from);
        if (at < 0) {
            *missing = piece;
            return -1;
        }
        from = at + piece.size();
    }
    return from;
}
