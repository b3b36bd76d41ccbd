#pragma once

struct SequenceContext;
class AlarmDisplay;

// The alarm reset of the RESET button: "0AR" with the other commands held
// off (command buttons, tab strip, menus); on success the lamps go back to
// green and the status label is emptied.
class AlarmReset {
public:
    AlarmReset(SequenceContext& context, AlarmDisplay& alarms);

    // 0 when the controller accepted the reset; 1 after the link showed why
    // not, or when another command runs.
    int run();

private:
    SequenceContext& m_context;
    AlarmDisplay& m_alarms;
};
