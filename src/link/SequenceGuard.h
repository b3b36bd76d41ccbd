#pragma once

#include <functional>
#include <vector>

class ControlLock;
class Link;

// Holds the other commands off while one sequence runs: constructed, it
// disables the controls and marks the link busy; destroyed, it gives all of
// it back, also when an exception leaves the sequence. Each sequence names
// its steps in the order in which it takes and returns them.
class SequenceGuard {
public:
    enum class Step {
        CommandButtons, // CMDBTN_Muko / CMDBTN_Yuko
        ParaButtons,    // ParaCMDBTN_Muko / ParaCMDBTN_Yuko
        HomeButtons,    // HOMEBTN_Muko / HOMEBTN_Yuko
        MoveButtons,    // MoveCMDBTN_Muko / MoveCMDBTN_Yuko
        Tabs,           // the tab strip
        Menus,          // Menyu_Muko / Menyu_Yuko
        Busy,           // gCommBusy
        ClosePort,      // on the way out only: CloseCommPort
        Own,            // the sequence's own controls, through `own`
    };
    struct Bracket {
        std::vector<Step> hold;
        std::vector<Step> release;
    };
    // The menus alone, for a command that works on files only.
    static const Bracket MenusOnly;

    // link: needed for ClosePort only. own(enabled): the sequence's own
    // controls, switched where Own stands.
    SequenceGuard(ControlLock& lock, Link* link, const Bracket& bracket,
                  std::function<void(bool enabled)> own = {});
    ~SequenceGuard();
    SequenceGuard(const SequenceGuard&) = delete;
    SequenceGuard& operator=(const SequenceGuard&) = delete;

private:
    void apply(Step step, bool enabled);

    ControlLock& m_lock;
    Link* m_link;
    const Bracket m_bracket;
    std::function<void(bool)> m_own;
};
