#pragma once

#include <QLoggingCategory>

// Events of the operation data sequences worth a trace but not a message.
Q_DECLARE_LOGGING_CATEGORY(lcOpData)
