#pragma once

#include <QString>

// The enable/disable routines of the main window, called by the sequences
// around their transactions. The widgets implement them; the command line
// and core tests use a lock that does nothing.
class ControlLock {
public:
    virtual ~ControlLock() = default;

    virtual void CMDBTN_Muko() {}
    virtual void CMDBTN_Yuko() {}
    virtual void Menyu_Muko() {}
    virtual void Menyu_Yuko() {}
    virtual void HOMEBTN_Muko() {}
    virtual void HOMEBTN_Yuko() {}
    virtual void MoveCMDBTN_Muko() {}
    virtual void MoveCMDBTN_Yuko() {}
    // The nine controls around the parameter and I/O commands.
    virtual void ParaCMDBTN_Muko() {}
    virtual void ParaCMDBTN_Yuko() {}
    // The tab strip of the main window (SSTab1).
    virtual void setTabsEnabled(bool) {}
    // A command holds the menus: Menyu_Muko was called, Menyu_Yuko not yet.
    // Every command that talks to the controller does so for its whole run,
    // the I/O monitor included.
    virtual bool held() const { return false; }
};

// Progress shown during transfers: the bar over the status bar and the
// transfer window frmTrance with its message line and own bar.
class ProgressDisplay {
public:
    virtual ~ProgressDisplay() = default;

    virtual void Disp_ProgressBar(int maximum) { (void)maximum; }
    virtual void setProgress(int value) { (void)value; }
    virtual int progress() const { return 0; }
    virtual void Hide_ProgressBar() {}

    virtual void showTransfer(const QString& text, int maximum)
    {
        (void)text;
        (void)maximum;
    }
    virtual void setTransferProgress(int value) { (void)value; }
    virtual void hideTransfer() {}

    // Whether someone watches this display. The short pauses after a step
    // exist only so that the step can be seen; without a window they would
    // only slow the work down.
    virtual bool watched() const { return false; }
};
