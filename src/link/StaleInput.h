#pragma once

#include <QString>
#include <QStringList>

// What arrived before a request was written, sorted out. Noise and late
// answers to earlier requests are of no use and are dropped, but error
// lines are the controller's own reports: the complete ones are handed out,
// and the start of one still arriving (or the one or two characters that may
// begin one) is kept, so that the rest of it is not taken for the reply.
struct StaleInput {
    QStringList errorLines; // complete, CR LF included
    QString head;

    static StaleInput split(const QString& stale);
};
