// The operation data file (.qmd) on arbitrary bytes, through the tab's
// Open: read, copied, shown. A file that was read is written out again and
// gives back the same four values.
#include "FuzzSupport.h"

#include "opdata/OpDataFakes.h"

#include "opdata/OpDataFile.h"
#include "opdata/OpDataFileCommands.h"
#include "support/ScriptedFileChooser.h"

namespace {

constexpr PosiTable::Column Kept[] = {PosiTable::VEL, PosiTable::ACC, PosiTable::DIVISION,
                                      PosiTable::GEAR};

int checkReader(const QString& path)
{
    PosiTable table;
    int label = 0;
    const int result = checkedRead(
        [&](Prompter& prompter) { return OpDataFile::ReadPosidataFile(path, table, label, prompter); });
    if (result == 0)
        FUZZ_CHECK(label == 148 || label == 149);
    return result;
}

void checkRoundTrip(const PosiTable& PosiData)
{
    const QString path = FuzzEnvironment::instance().writeFile(QStringLiteral("again.qmd"), {});
    FUZZ_CHECK(OpDataFile::write(path, PosiData, nullptr));
    PosiTable back;
    int label = 0;
    CountingPrompter prompter;
    FUZZ_CHECK(OpDataFile::ReadPosidataFile(path, back, label, prompter) == 0);
    FUZZ_CHECK(label == 148);
    for (PosiTable::Column c : Kept)
        FUZZ_CHECK(back.number(c) == PosiData.number(c));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = FuzzEnvironment::instance().writeFile(QStringLiteral("fuzz.qmd"), data, size);
    const int result = checkReader(path);

    CountingPrompter prompter;
    ControlLock lock;
    ProgressDisplay progress;
    ScriptedFileChooser files;
    files.setNextFileName(path);
    OpDataState state;
    FakeOpDataView view(state);
    OpDataFileCommands commands(prompter, lock, progress, files, state, view);
    commands.Open();
    FUZZ_CHECK(view.showCount == (result == 0 ? 1 : 0));
    FUZZ_CHECK(prompter.count == result);
    if (result == 0) {
        FUZZ_CHECK(view.shown.txtVEL == QString::number(state.PosiData.number(PosiTable::VEL)));
        checkRoundTrip(state.PosiData);
    }
    return 0;
}
