#pragma once

class CliSession;

// The list files shipped with the program that a command needs, checked
// before anything is sent. One that cannot be read is named, with where it
// was looked for, and the command stops with the usage status: a run never
// starts on the controller only to miss a file that was never there.

// The error list of the active language, read into the session's link.
// 0 when read; otherwise the exit status after the reason was given.
int requireErrorList(CliSession& session);

// The device list, read as the parameter read reads it.
int requireDeviceList(CliSession& session);
