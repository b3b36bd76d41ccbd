#pragma once

class ControlLock;
class FileChooser;
class Link;
class CommandSet;
class ProgressDisplay;
class Prompter;

// What every sequence that talks to the controller or to files needs: the
// link and its commands, the way to ask and tell the user, the enabling
// routines, the progress display and the file dialogs. The desktop tool,
// the command line and the tests each assemble one.
struct SequenceContext {
    Link& link;
    CommandSet& commands;
    Prompter& prompter;
    ControlLock& lock;
    ProgressDisplay& progress;
    FileChooser& files;
};
