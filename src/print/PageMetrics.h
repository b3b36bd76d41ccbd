#pragma once

// The page measures a printout lays its rows out by, in whole millimetres.
struct PageMetrics {
    int gLinePitch = 0;  // height of a text line ("A")
    int gLinePitch2 = 0; // a looser line pitch, one millimetre more
    int gPageRows = 0;   // lines of gLinePitch that fit the page height
    int gPageRows2 = 0;  // the same for gLinePitch2
    int gRightEdge = 0;  // right end of the rules: page width less 10

    static PageMetrics compute(double letterHeightMm, double pageWidthMm, double pageHeightMm);
};
