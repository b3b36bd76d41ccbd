#pragma once

#include <QString>

// "Version " + major + "." + minor + revision: minor and revision are joined
// without a point, so 0, 9, 6 reads "Version 0.96".
QString VersionText(int major, int minor, int revision);

// The version text of this build.
QString ProgramVersionText();
