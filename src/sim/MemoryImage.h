#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>

// One copy of everything the controller remembers: parameter blocks 0, 1,
// 2 and 7 (32 hex digits each) and the operation records 1 to 63
// (16 characters each). The controller holds two: the working copy that
// reads and writes use, and the stored copy that survives a restart.
struct MemoryImage {
    static constexpr int FirstRecord = 1;
    static constexpr int LastRecord = 63;

    static const QList<int>& blockNumbers();
    static bool isBlock(int number);
    static bool isRecord(int number);
    static MemoryImage factory();

    QMap<int, QByteArray> blocks;
    QList<QByteArray> records; // index = record number; index 0 unused
};
