#include "opdata/OpDataLog.h"

Q_LOGGING_CATEGORY(lcOpData, "ktr.opdata")
