#pragma once

#include <QString>

class CliSession;

// An option's value that must be a whole number within a range, written in
// plain decimal digits.
class NumberArgument {
public:
    static bool valid(const QString& text, int low, int high);
    // Reports the usage error and returns its exit status.
    static int reject(CliSession& session, const QString& option, int low, int high);
};
