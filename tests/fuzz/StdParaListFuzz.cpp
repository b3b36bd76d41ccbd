// The standard parameter list on arbitrary bytes, through the "initial
// parameters" command: the actuator is chosen (with and without encoder),
// the list is read and copied into the page's set, and the set is shown.
#include "FuzzSupport.h"

#include "common/ControlLock.h"
#include "common/ProgramState.h"
#include "device/DeviceSelector.h"
#include "params/ParaData.h"
#include "params/ParaEntries.h"
#include "params/ParaScreen.h"
#include "params/StandardPara.h"
#include "params/StdParaList.h"

namespace {

class ChosenActuator : public DeviceSelector {
public:
    explicit ChosenActuator(bool pgUse)
        : m_pgUse(pgUse)
    {
    }
    bool selectDevice() override
    {
        ProgramState::instance().gPgUse = m_pgUse;
        return false;
    }

private:
    bool m_pgUse;
};

int checkList()
{
    StdParaList list;
    const int result = checkedRead([&list](Prompter& prompter) { return list.ReadStdParaList(prompter); });
    for (int row = 0; row < StdParaList::MaxRows; ++row) {
        for (int column = 0; column < StdParaList::MaxColumns; ++column) {
            const QVariant value = list.value(row, column);
            FUZZ_CHECK(!value.isValid() || value.typeId() == QMetaType::Double);
        }
    }
    return result;
}

// Applied or not, the page ends with one message at most, and a set that
// was not applied is the set it had.
void checkApply(bool pgUse, int listResult)
{
    CountingPrompter prompter;
    ControlLock lock;
    ChosenActuator selector(pgUse);
    StandardPara standard(lock, prompter, selector);
    ParaData page;
    page.set.reserved.fill(7);
    ParaScreen screen;
    standard.cmdIniPrm_Click(page, screen);
    FUZZ_CHECK(prompter.count <= 1);
    FUZZ_CHECK(page.paraEdited == (prompter.count == 0));
    if (listResult != 0)
        FUZZ_CHECK(!page.paraEdited);
    if (!page.paraEdited)
        FUZZ_CHECK(page.set.home.offset == 0 && page.set.axis.motorCode.isEmpty());
    FUZZ_CHECK(page.set.reserved[0] == 7);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzEnvironment::instance().writeFile(QStringLiteral("hb4cmstpr.lst"), data, size);
    const int result = checkList();
    checkApply(false, result);
    checkApply(true, result);
    return 0;
}
