#pragma once

#include "params/CtParaImage.h"

#include <QString>

struct ParaScreen;
struct SequenceContext;

// Reads blocks 0, 1 and 2 ("0RD", 3000 ms each) with a progress bar of 4.
// Nothing is converted unless all three replies are in: on a failed
// transaction the image stays as it was, the busy state is released and 1
// is returned (the link has told the user). 0 when the image was filled.
int ReadParaFromCt(SequenceContext& ctx, CtParaImage& image);

// Reads block 7 ("0RD7", 3000 ms) into its 32 data digits. 0 when read, 1
// when the transaction failed.
int ReadParaBlock7(SequenceContext& ctx, QString& digits);

// Reads block 7 and, when the size shown is "SP", shows
// its operating current in txtDenryu. 0 when the block was read, 1 when the
// transaction failed. An operating current too large for the display's
// arithmetic raises RuntimeError Overflow (see SpCurrentFromBlock7).
int GetSPdenryu(SequenceContext& ctx, ParaScreen& screen);
