#include "common/SeqWriter.h"

void SeqWriter::separate()
{
    if (m_lineStarted)
        m_bytes += ',';
    m_lineStarted = true;
}

SeqWriter& SeqWriter::text(const QString& value)
{
    separate();
    m_bytes += '"' + value.toUtf8() + '"';
    return *this;
}

SeqWriter& SeqWriter::number(double value)
{
    separate();
    m_bytes += QByteArray::number(value, 'g', 15);
    return *this;
}

SeqWriter& SeqWriter::endLine()
{
    m_bytes += "\r\n";
    m_lineStarted = false;
    return *this;
}
