#include "print/PageMetrics.h"

#include "common/NumberText.h"

// Whole millimetres are rounded halves-to-even, and the row counts divide
// the rounded page height, as the printer's own integer arithmetic does.
PageMetrics PageMetrics::compute(double letterHeightMm, double pageWidthMm, double pageHeightMm)
{
    PageMetrics m;
    m.gLinePitch = RoundToInt16(letterHeightMm);
    m.gLinePitch2 = m.gLinePitch + 1;
    const int height = RoundToInt16(pageHeightMm);
    m.gPageRows = m.gLinePitch > 0 ? height / m.gLinePitch : 0;
    m.gPageRows2 = height / m.gLinePitch2;
    m.gRightEdge = RoundToInt16(pageWidthMm - 10);
    return m;
}
