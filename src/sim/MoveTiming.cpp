#include "sim/MoveTiming.h"

#include "sim/OperationRecord.h"

#include <algorithm>
#include <cmath>

double MoveTiming::indexingMs(const OperationRecord& record)
{
    const double outputRpm = double(record.vel) * record.gear / 30.0;
    const double travelMs = 60000.0 / (record.division * outputRpm);
    return travelMs + RampMsPerAcc * record.acc;
}

int MoveTiming::scaled(double ms, double timeScale)
{
    return std::max(1, int(std::lround(ms * timeScale)));
}
