#pragma once

#include <QByteArray>
#include <QFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

// The text of a PDF as a reader extracts it (pdftotext, keeping the layout),
// so a test sees what survives in the file: fonts embedded with their
// character maps, one page, the lines in order.
inline QString pdfText(const QByteArray& pdf)
{
    QTemporaryDir dir;
    const QString pdfPath = dir.filePath(QStringLiteral("page.pdf"));
    const QString textPath = dir.filePath(QStringLiteral("page.txt"));
    QFile out(pdfPath);
    if (!out.open(QIODevice::WriteOnly) || out.write(pdf) != pdf.size())
        return {};
    out.close();
    if (QProcess::execute(QStringLiteral("pdftotext"),
                          {QStringLiteral("-layout"), QStringLiteral("-enc"), QStringLiteral("UTF-8"),
                           pdfPath, textPath}) != 0)
        return {};
    QFile in(textPath);
    if (!in.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(in.readAll());
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
