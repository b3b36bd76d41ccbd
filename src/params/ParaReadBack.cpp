#include "params/ParaReadBack.h"

#include "params/ParaCompare.h"
#include "params/ParaCtRead.h"

ReadBack ReadParaBack(SequenceContext& ctx, const ParaSet& written, CtParaImage& image)
{
    if (ReadParaFromCt(ctx, image) != 0)
        return {ReadBack::Result::Failed, {}};
    ParaCompareLines lines;
    const int differs = MakeParaCompareList(image, written, lines);
    return {differs ? ReadBack::Result::Differs : ReadBack::Result::Confirmed, ParaVerifyReport(differs, lines)};
}
