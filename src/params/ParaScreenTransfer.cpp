#include "params/ParaScreenTransfer.h"

#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "params/ActuatorSize.h"
#include "params/MotorCode.h"

namespace {

// List lengths of the parameter lists on the page.
constexpr int AutoDrvItems = 2;
constexpr int PgFuncItems = 2;
constexpr int HomeOutItems = 4;
constexpr int AutoHomeItems = 2;
constexpr int OptionValues = 2;

int listIndex(int value, int items)
{
    return value >= 0 && value < items ? value : -1;
}

QString number(qint64 value)
{
    return QString::number(value);
}

void takeBoxes(const ParaScreen& s, ParaSet& set)
{
    set.home.offset = TextToInt32(s.txtHomeOffset);
    set.home.vel = TextToInt16(s.txtHomeVel);
    set.home.ofsVel = TextToInt16(s.txtHomeOfsVel);
    set.axis.pulse = TextToInt32(s.txtAxisPulse);
    set.pg.alm = TextToInt32(s.txtPgAlarm);
    set.etc.inpWid = TextToInt16(s.txtInpLimit);
    set.special.pgTimer = TextToInt16(s.txtPgCheckTimer);
    set.special.lsTimer = TextToInt16(s.txtLsSerchTimer);
}

void takeChoices(const ParaScreen& s, ParaSet& set)
{
    set.axis.autoDrive = qint16(s.comboAxisAutoDrv);
    set.pg.function = qint16(s.comboPgFunc);
    set.etc.homeOut = qint16(s.comboHomeOut);
    set.special.autoHome = qint16(s.comboAutoHome);
    set.special.emgLogic = qint16(s.optEmgLogic);
    set.special.alm1Clear = qint16(s.optAlarmAutoClear);
}

void takeSize(const ParaScreen& s, ParaSet& set)
{
    set.axis.sizeText = SizeTextFromDisplay(s.comboActSize.trimmed());
    set.axis.motorCode = MotorCodeText(set.axis.sizeText, set.axis.letter, set.axis.motorNumber);
}

} // namespace

int TorikomiParametaValue(const ParaScreen& screen, ParaSet& set)
{
    ParaSet taken = set;
    try {
        takeBoxes(screen, taken);
    } catch (const RuntimeError&) {
        return 1;
    }
    takeChoices(screen, taken);
    takeSize(screen, taken);
    set = taken;
    return 0;
}

void ParametaHyoji(const ParaSet& set, ParaScreen& screen)
{
    screen.txtHomeOffset = number(set.home.offset);
    screen.txtHomeVel = number(set.home.vel);
    screen.txtHomeOfsVel = number(set.home.ofsVel);

    screen.txtAxisPulse = number(set.axis.pulse);
    screen.comboAxisAutoDrv = listIndex(set.axis.autoDrive, AutoDrvItems);
    screen.comboActSize = SizeDisplayText(set.axis.sizeText);

    screen.comboPgFunc = listIndex(set.pg.function, PgFuncItems);
    screen.txtPgAlarm = number(set.pg.alm);

    screen.comboHomeOut = listIndex(set.etc.homeOut, HomeOutItems);
    screen.txtInpLimit = number(set.etc.inpWid);

    screen.txtPgCheckTimer = number(set.special.pgTimer);
    screen.comboAutoHome = listIndex(set.special.autoHome, AutoHomeItems);
    screen.txtLsSerchTimer = number(set.special.lsTimer);
    screen.optEmgLogic = listIndex(set.special.emgLogic, OptionValues);
    screen.optAlarmAutoClear = listIndex(set.special.alm1Clear, OptionValues);

    const QString current = DenryuForSize(screen.comboActSize);
    if (!current.isNull())
        screen.txtDenryu = current;
}
