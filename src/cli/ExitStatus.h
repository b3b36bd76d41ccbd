#pragma once

// What ktrctl tells its caller.
enum ExitStatus {
    ExitDone = 0,       // done; verify/diff: the sets are equal
    ExitLinkFailed = 1, // the controller or the link failed, or the run was interrupted
    ExitUsage = 2,      // usage error, or input rejected before anything was sent
    ExitDiffer = 3,     // verify/diff: the sets differ
};
