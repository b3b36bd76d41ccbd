#pragma once

#include "link/CommandSet.h"
#include "link/LinkRig.h"
#include "link/SequenceContext.h"

#include "support/RecordingLock.h"
#include "support/ScriptedFileChooser.h"

// What a sequence is given, on a scripted link, with the enabling and the
// progress recorded.
struct SequenceRig : LinkRig<> {
    CommandSet commands{link};
    RecordingLock lock;
    RecordingProgress progress;
    ScriptedFileChooser files;
    SequenceContext ctx{link, commands, prompter, lock, progress, files};
};
