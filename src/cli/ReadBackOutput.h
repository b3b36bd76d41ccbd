#pragma once

#include <QString>

class CliSession;
struct ReadBack;

// The text of a message box as command output: its CR LF line ends as new
// lines, ended by one.
void printBoxText(CliSession& session, const QString& text);

// What a write with --confirm prints on stdout (the message box's text,
// which the prompter has put on stderr already) and its exit status:
// confirmed 0, different 3, the read-back failed 1.
int printReadBack(CliSession& session, const ReadBack& readBack);
