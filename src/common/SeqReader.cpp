#include "common/SeqReader.h"

#include "common/NumberText.h"
#include "common/RuntimeError.h"

#include <QFile>

SeqReader::SeqReader(const QByteArray& content)
    : m_text(QString::fromUtf8(content))
{
}

SeqReader SeqReader::fromFile(const QString& path)
{
    QFile file(path);
    if (!file.exists())
        throw RuntimeError(RuntimeError::Kind::FileNotFound, path);
    if (file.size() > MaxFileSize)
        throw RuntimeError(RuntimeError::Kind::FileTooLarge, path);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(RuntimeError::Kind::Io, file.errorString());
    const QByteArray content = file.read(MaxFileSize + 1);
    if (content.size() > MaxFileSize)
        throw RuntimeError(RuntimeError::Kind::FileTooLarge, path);
    return SeqReader(content);
}

bool SeqReader::atEnd() const
{
    qsizetype p = m_pos;
    while (p < m_text.size()) {
        const QChar c = m_text[p];
        if (c != u' ' && c != u'\t' && c != u'\r' && c != u'\n')
            return false;
        ++p;
    }
    return true;
}

void SeqReader::skipBlanks()
{
    while (m_pos < m_text.size()) {
        const QChar c = m_text[m_pos];
        if (c != u' ' && c != u'\t' && c != u'\r' && c != u'\n')
            break;
        ++m_pos;
    }
}

// Consumes what follows an item up to and including its delimiter: a comma,
// or a line end (CR, LF or CR LF).
void SeqReader::skipDelimiter()
{
    m_afterComma = false;
    while (m_pos < m_text.size()) {
        const QChar c = m_text[m_pos++];
        if (c == u',') {
            m_afterComma = true;
            return;
        }
        if (c == u'\n')
            return;
        if (c == u'\r') {
            if (m_pos < m_text.size() && m_text[m_pos] == u'\n')
                ++m_pos;
            return;
        }
    }
}

SeqReader::Item SeqReader::readItem()
{
    // A comma right before a line end (or the end) leaves an empty item
    // there; elsewhere blank lines between items are skipped.
    if (m_afterComma) {
        while (m_pos < m_text.size() && (m_text[m_pos] == u' ' || m_text[m_pos] == u'\t'))
            ++m_pos;
        if (m_pos >= m_text.size() || m_text[m_pos] == u'\r' || m_text[m_pos] == u'\n') {
            skipDelimiter();
            m_afterComma = false;
            return {};
        }
    }
    skipBlanks();
    if (m_pos >= m_text.size())
        throw RuntimeError(RuntimeError::Kind::InputPastEnd);

    Item item;
    if (m_text[m_pos] == u'"') {
        item.quoted = true;
        const qsizetype close = m_text.indexOf(u'"', m_pos + 1);
        const qsizetype end = close < 0 ? m_text.size() : close;
        item.text = m_text.mid(m_pos + 1, end - m_pos - 1);
        m_pos = close < 0 ? m_text.size() : close + 1;
        skipDelimiter();
        return item;
    }

    const qsizetype start = m_pos;
    while (m_pos < m_text.size()) {
        const QChar c = m_text[m_pos];
        if (c == u',' || c == u'\r' || c == u'\n')
            break;
        ++m_pos;
    }
    item.text = m_text.mid(start, m_pos - start).trimmed();
    skipDelimiter();
    return item;
}

QString SeqReader::readText()
{
    return readItem().text;
}

double SeqReader::readNumber()
{
    const Item item = readItem();
    if (item.text.trimmed().isEmpty())
        return 0;
    return ToNumber(item.text);
}
