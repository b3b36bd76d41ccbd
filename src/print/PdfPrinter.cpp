#include "print/PdfPrinter.h"

#include "common/AtomicFile.h"
#include "print/Printout.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>

QByteArray PdfPrinter::render(Printout& printout)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setCreator(QStringLiteral("KTR-W5"));
        writer.setResolution(Resolution);
        writer.setPageLayout(QPageLayout(QPageSize(printout.paper()), QPageLayout::Portrait,
                                         QMarginsF(0, 0, 0, 0)));
        printout.render(writer);
    }
    return buffer.data();
}

bool PdfPrinter::write(Printout& printout, const QString& path, QString* errorString)
{
    return AtomicFile::write(path, render(printout), errorString);
}
