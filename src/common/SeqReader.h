#pragma once

#include <QByteArray>
#include <QString>

// Reads the comma-separated sequential item format of every .lst, .pmt and
// .qmd file: items are separated by commas and line ends; an item in double
// quotes may hold commas; blanks around an unquoted item are dropped.
// Every failure (missing file, file ends early, text where a number is
// required, file too large) is a RuntimeError, caught by the reader that
// knows which message to show.
class SeqReader {
public:
    struct Item {
        QString text;
        bool quoted = false;
    };

    // Files larger than this are refused before they are read: every file
    // of this program is a few hundred bytes.
    static constexpr qint64 MaxFileSize = 1024 * 1024;

    explicit SeqReader(const QByteArray& content);
    static SeqReader fromFile(const QString& path);

    Item readItem();
    QString readText();
    double readNumber(); // empty item gives 0
    bool atEnd() const;

private:
    void skipBlanks();
    void skipDelimiter();

    QString m_text;
    qsizetype m_pos = 0;
    bool m_afterComma = false;
};
