#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <initializer_list>

// The program's two-language message table: the Japanese text of message N
// at id N, the English text at id 10000 + N. It is the translation mechanism
// of the program; ids are part of the behaviour (file names are chosen by id).
class MessageTable {
public:
    static constexpr int EnglishBase = 10000;

    // The table embedded in the program.
    static const MessageTable& instance();

    // Rows of "N <tab> Japanese <tab> English"; "\n" and "\t" escapes allowed.
    static MessageTable fromTsv(const QByteArray& tsv);

    bool contains(int id) const { return m_texts.contains(id); }
    QString text(int id) const { return m_texts.value(id); }
    QList<int> ids() const { return m_texts.keys(); }

private:
    QHash<int, QString> m_texts;
};

// Message N in the active language (id gMsgBase + N).
QString Msg(int n);

// Messages in the active language joined with CR LF, as a message box shows them.
// An id of 0 stands for an empty line.
QString MsgLines(std::initializer_list<int> ns);
