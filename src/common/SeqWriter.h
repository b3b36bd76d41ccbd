#pragma once

#include <QByteArray>
#include <QString>

// Writes the sequential item format read by SeqReader: texts in double
// quotes, numbers bare with "." as the decimal point, items of a line joined
// by commas, every line ended by CR LF.
class SeqWriter {
public:
    SeqWriter& text(const QString& value);
    SeqWriter& number(double value);
    SeqWriter& endLine();

    const QByteArray& bytes() const { return m_bytes; }

private:
    void separate();

    QByteArray m_bytes;
    bool m_lineStarted = false;
};
