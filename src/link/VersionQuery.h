#pragma once

#include <QString>

struct SequenceContext;

// Shows the controller's firmware version: a communication check, then
// "0RV"; a controller that answers "0RV" with an error reply is asked in the
// older form "0%C". Both replies carry a type code at characters 4 to 6 and
// three version digits at 7 to 9.
class VersionQuery {
public:
    explicit VersionQuery(SequenceContext& context);

    // 0 when the version was read and shown; 1 after the link showed why
    // not, or when another command runs.
    int run();

    QString version() const { return m_version; }
    QString typeCode() const { return m_typeCode; }

    // The exchange alone, shown nowhere, for a sequence that holds the
    // commands itself: 0 when the version was read.
    int query();

    // "100" -> "1.00": the first digit, a point, the other two.
    static QString versionText(const QString& digits);

private:
    void takeReply();

    SequenceContext& m_context;
    QString m_version;
    QString m_typeCode;
};
