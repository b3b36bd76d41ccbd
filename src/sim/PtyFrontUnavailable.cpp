#include "sim/PtyFront.h"

#include "common/MessageTable.h"

// Where the system has no pseudo-terminals the front cannot open; the user
// is pointed to a virtual null-modem pair and --device instead.
PtyFront::PtyFront(SimController& controller, QObject* parent)
    : QObject(parent)
    , m_controller(controller)
{
}

PtyFront::~PtyFront() = default;

bool PtyFront::open(QString* errorString)
{
    *errorString = Msg(5580);
    return false;
}
