#pragma once

#include "common/ControlLock.h"

#include <QStringList>

// Stand-ins for the window's enabling routines and progress displays. Each
// records what it was asked to do, in order, so tests can check the enabling
// around a command and what the user was shown.
class RecordingLock : public ControlLock {
public:
    void CMDBTN_Muko() override { calls << QStringLiteral("CMDBTN_Muko"); }
    void CMDBTN_Yuko() override { calls << QStringLiteral("CMDBTN_Yuko"); }
    void Menyu_Muko() override { calls << QStringLiteral("Menyu_Muko"); }
    void Menyu_Yuko() override { calls << QStringLiteral("Menyu_Yuko"); }
    void HOMEBTN_Muko() override { calls << QStringLiteral("HOMEBTN_Muko"); }
    void HOMEBTN_Yuko() override { calls << QStringLiteral("HOMEBTN_Yuko"); }
    void MoveCMDBTN_Muko() override { calls << QStringLiteral("MoveCMDBTN_Muko"); }
    void MoveCMDBTN_Yuko() override { calls << QStringLiteral("MoveCMDBTN_Yuko"); }
    void ParaCMDBTN_Muko() override { calls << QStringLiteral("ParaCMDBTN_Muko"); }
    void ParaCMDBTN_Yuko() override { calls << QStringLiteral("ParaCMDBTN_Yuko"); }
    void setTabsEnabled(bool on) override { calls << (on ? QStringLiteral("tabs on") : QStringLiteral("tabs off")); }

    QStringList calls;
};

// Records into its own list, or into another one (a lock's) to keep both
// in one order.
class RecordingProgress : public ProgressDisplay {
public:
    void recordInto(QStringList& list) { m_calls = &list; }

    void Disp_ProgressBar(int maximum) override { record(QStringLiteral("bar %1").arg(maximum)); }
    void setProgress(int value) override { record(QStringLiteral("bar = %1").arg(m_value = value)); }
    int progress() const override { return m_value; }
    void Hide_ProgressBar() override { record(QStringLiteral("bar hidden")); }
    void showTransfer(const QString& text, int maximum) override
    {
        record(QStringLiteral("window %1 %2").arg(text).arg(maximum));
    }
    void setTransferProgress(int value) override { record(QStringLiteral("window = %1").arg(value)); }
    void hideTransfer() override { record(QStringLiteral("window hidden")); }

    QStringList calls;

private:
    void record(const QString& call) { *m_calls << call; }

    QStringList* m_calls = &calls;
    int m_value = 0;
};
