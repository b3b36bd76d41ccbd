#include "common/VersionText.h"

QString VersionText(int major, int minor, int revision)
{
    return QStringLiteral("Version %1.%2%3").arg(major).arg(minor).arg(revision);
}

QString ProgramVersionText()
{
    return VersionText(KTR_VERSION_MAJOR, KTR_VERSION_MINOR, KTR_VERSION_PATCH);
}
