#pragma once

#include "link/ReadBack.h"

class CtParaImage;
struct ParaSet;
struct SequenceContext;

// After a parameter write: blocks 0, 1 and 2 read again as a verification
// reads them, into image, and compared with the set written. Differences
// are reported as the verification reports them. A failed read has been
// told by the link.
ReadBack ReadParaBack(SequenceContext& ctx, const ParaSet& written, CtParaImage& image);
