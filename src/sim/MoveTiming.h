#pragma once

struct OperationRecord;

// How long the virtual axis takes, at time scale 1.
//
// An indexing move turns the output by 1/DIVISION of a turn. The speed
// choice (VEL x GEAR / 300, 1 to 30 as the tool offers it) is taken as
// ten output revolutions per minute per step of the choice, so choice 1
// is 10 rpm. ACC 1 to 3 adds ACC x 50 ms for the ramps at both ends:
//
//   duration = 60000 / (DIVISION x VEL x GEAR / 30) + 50 x ACC   [ms]
//
// The factory record (VEL 300, GEAR 1, DIVISION 12, ACC 1) takes 550 ms.
// Homing takes a fixed 500 ms.
class MoveTiming {
public:
    static constexpr int HomingMs = 500;
    static constexpr int RampMsPerAcc = 50;

    static double indexingMs(const OperationRecord& record);
    // A duration times the time scale, at least 1 ms.
    static int scaled(double ms, double timeScale);
};
