#include "common/NumberText.h"

#include "common/RuntimeError.h"

#include <cmath>
#include <limits>

namespace {

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\n' || c == u'\r';
}

// Only the ASCII digits: QChar::isDigit() also takes the digits of other
// scripts, which the conversion to double then reads as no number at all.
bool isDecimalDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

int digitValue(QChar c)
{
    if (isDecimalDigit(c))
        return c.unicode() - u'0';
    const QChar u = c.toUpper();
    if (u >= u'A' && u <= u'F')
        return u.unicode() - u'A' + 10;
    return 99;
}

double radixDigits(const QString& s, int start, int radix, int* end)
{
    double value = 0;
    int i = start;
    for (; i < s.size(); ++i) {
        const int d = digitValue(s[i]);
        if (d >= radix)
            break;
        value = value * radix + d;
    }
    if (end)
        *end = i;
    return value;
}

// Longest decimal number at the start of s: sign, digits, point, exponent.
// Returns the number of characters used (0 when there is no number).
int decimalPrefix(const QString& s, double* value)
{
    int i = 0;
    if (i < s.size() && (s[i] == u'+' || s[i] == u'-'))
        ++i;
    bool digits = false;
    while (i < s.size() && isDecimalDigit(s[i])) {
        ++i;
        digits = true;
    }
    if (i < s.size() && s[i] == u'.') {
        ++i;
        while (i < s.size() && isDecimalDigit(s[i])) {
            ++i;
            digits = true;
        }
    }
    if (!digits) {
        *value = 0;
        return 0;
    }
    int end = i;
    if (i < s.size() && (s[i] == u'e' || s[i] == u'E' || s[i] == u'd' || s[i] == u'D')) {
        int j = i + 1;
        if (j < s.size() && (s[j] == u'+' || s[j] == u'-'))
            ++j;
        const int expStart = j;
        while (j < s.size() && isDecimalDigit(s[j]))
            ++j;
        if (j > expStart)
            end = j;
    }
    QString number = s.left(end);
    number.replace(u'd', u'e').replace(u'D', u'e');
    *value = number.toDouble();
    return end;
}

bool radixPrefix(const QString& s, int* radix)
{
    if (s.size() < 2 || s[0] != u'&')
        return false;
    const QChar k = s[1].toUpper();
    if (k == u'H') {
        *radix = 16;
        return true;
    }
    if (k == u'O') {
        *radix = 8;
        return true;
    }
    return false;
}

} // namespace

double LeadingNumber(const QString& text)
{
    QString s;
    for (QChar c : text)
        if (!isBlank(c))
            s += c;
    int radix = 0;
    if (radixPrefix(s, &radix))
        return radixDigits(s, 2, radix, nullptr);
    double value = 0;
    decimalPrefix(s, &value);
    return value;
}

bool IsNumeric(const QString& text)
{
    const QString s = text.trimmed();
    if (s.isEmpty())
        return false;
    int radix = 0;
    if (radixPrefix(s, &radix)) {
        int end = 0;
        radixDigits(s, 2, radix, &end);
        return end > 2 && end == s.size();
    }
    double value = 0;
    return decimalPrefix(s, &value) == s.size();
}

double ToNumber(const QString& text)
{
    if (!IsNumeric(text))
        throw RuntimeError(RuntimeError::Kind::TypeMismatch, text);
    return LeadingNumber(text.trimmed());
}

namespace {

template<typename T>
T roundChecked(double value)
{
    if (std::isnan(value))
        throw RuntimeError(RuntimeError::Kind::Overflow);
    const double r = std::nearbyint(value); // default mode: halves to even
    if (r < double(std::numeric_limits<T>::min()) || r > double(std::numeric_limits<T>::max()))
        throw RuntimeError(RuntimeError::Kind::Overflow, QString::number(value));
    return static_cast<T>(r);
}

} // namespace

qint16 RoundToInt16(double value) { return roundChecked<qint16>(value); }
qint32 RoundToInt32(double value) { return roundChecked<qint32>(value); }
qint16 TextToInt16(const QString& text) { return RoundToInt16(ToNumber(text)); }
qint32 TextToInt32(const QString& text) { return RoundToInt32(ToNumber(text)); }

qint64 HexDigitsValue(const QString& digits)
{
    if (digits.isEmpty() || digits.size() > 15)
        return -1;
    bool ok = false;
    const qint64 v = digits.toLongLong(&ok, 16);
    return ok && !digits.startsWith(u'-') && !digits.startsWith(u'+') ? v : -1;
}
