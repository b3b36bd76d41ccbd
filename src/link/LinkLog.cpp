#include "link/LinkLog.h"

Q_LOGGING_CATEGORY(lcLink, "ktr.link", QtWarningMsg)
Q_LOGGING_CATEGORY(lcLinkFrames, "ktr.link.frames", QtWarningMsg)
