// The sequential item reader on arbitrary bytes: it must end every read
// with items or a RuntimeError, always make progress, and agree with the
// number rules the file readers rely on.
#include "FuzzSupport.h"

#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "common/SeqReader.h"
#include "common/SeqWriter.h"

#include <QList>
#include <QLocale>

#include <cmath>

namespace {

// Every item up to the end. Each item uses at least one character or ends
// the content, so more items than characters (plus the trailing empty one)
// means the reader stopped moving.
QList<SeqReader::Item> readAll(const QByteArray& content)
{
    SeqReader in(content);
    QList<SeqReader::Item> items;
    while (!in.atEnd()) {
        items << in.readItem();
        FUZZ_CHECK(items.size() <= content.size() + 1);
    }
    return items;
}

// Decimal texts the reader calls numbers are written in ASCII and have the
// value a plain C-locale parse gives them (with "D" as the exponent letter
// the runtime also knows); they round to the nearest integer or overflow.
void checkNumber(const QString& text)
{
    const bool numeric = IsNumeric(text);
    double value = 0;
    try {
        value = ToNumber(text);
        FUZZ_CHECK(numeric);
    } catch (const RuntimeError& e) {
        FUZZ_CHECK(!numeric && e.kind() == RuntimeError::Kind::TypeMismatch);
        return;
    }
    const QString trimmed = text.trimmed();
    if (trimmed.startsWith(u'&'))
        return;
    for (const QChar c : trimmed)
        FUZZ_CHECK(QStringLiteral("0123456789+-.eEdD").contains(c));
    QString plain = trimmed;
    plain.replace(u'd', u'e').replace(u'D', u'e');
    bool ok = false;
    const double reference = QLocale::c().toDouble(plain, &ok);
    FUZZ_CHECK(!ok || reference == value);
    try {
        const qint32 rounded = RoundToInt32(value);
        FUZZ_CHECK(std::abs(double(rounded) - value) <= 0.5);
    } catch (const RuntimeError& e) {
        FUZZ_CHECK(e.kind() == RuntimeError::Kind::Overflow);
    }
}

// Texts without a double quote travel through the writer and back unchanged.
void checkRoundTrip(const QList<SeqReader::Item>& items)
{
    SeqWriter out;
    QList<QString> written;
    for (const SeqReader::Item& item : items) {
        if (item.text.contains(u'"'))
            continue;
        out.text(item.text);
        written << item.text;
    }
    out.endLine();
    if (written.isEmpty())
        return;
    SeqReader back(out.bytes());
    for (const QString& text : written)
        FUZZ_CHECK(back.readItem().text == text);
    FUZZ_CHECK(back.atEnd());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzEnvironment::instance();
    const QByteArray content(reinterpret_cast<const char*>(data), qsizetype(size));
    // While anything but blanks is left, there is an item to read: an
    // exception here escapes and is a finding.
    const QList<SeqReader::Item> items = readAll(content);
    for (const SeqReader::Item& item : items)
        checkNumber(item.text);
    checkRoundTrip(items);
    return 0;
}
