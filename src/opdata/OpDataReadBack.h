#pragma once

#include "link/ReadBack.h"

class OpDataView;
class PosiTable;
struct SequenceContext;

// After an operation data write: the record read again as "Read from C/T"
// reads it ("0CM6", "0RP01", shown on view's transfer display as a read is)
// and compared field by field with row 0 of what was written; the tab's own
// data is left as it is. The differences are message 823, then one line per
// differing field (5562: name, value written, value read; DIR as CW or CCW),
// joined with CR LF. A failed read has been told by the link.
ReadBack ReadOpDataBack(SequenceContext& ctx, OpDataView& view, const PosiTable& written);
