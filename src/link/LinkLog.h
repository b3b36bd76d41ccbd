#pragma once

#include <QLoggingCategory>

// ktr.link: opening and closing of the port, refusals, lost devices.
// ktr.link.frames: every frame written and every line received; --trace and
// the communication log switch it on.
Q_DECLARE_LOGGING_CATEGORY(lcLink)
Q_DECLARE_LOGGING_CATEGORY(lcLinkFrames)
