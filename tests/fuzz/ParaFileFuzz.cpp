// The parameter file (.pmt) on arbitrary bytes, through the page's Open:
// read, taken into the set, shown. Whatever the file holds, the outcome is
// one of the documented ones, and a set that passes the value check is
// saved and read back unchanged and can be coded for the controller.
#include "FuzzSupport.h"

#include "params/ParaFixtures.h"

#include "params/ParaBlockCodec.h"
#include "params/ParaData.h"
#include "params/ParaFile.h"
#include "params/ParaFileCommands.h"
#include "params/ParaScreen.h"
#include "params/ParaValueCheck.h"
#include "params/TakeCtParaImage.h"
#include "support/ScriptedFileChooser.h"

namespace {

const QString Marker = QStringLiteral("untouched");

// The reader alone: its result and the messages it shows agree.
int checkReader(const QString& path)
{
    CtParaImage image;
    for (int entry = 0; entry < CtParaImage::EntryCount; ++entry)
        image[entry] = Marker;
    CountingPrompter prompter;
    const int result = LoadParaFile(path, image, prompter);
    FUZZ_CHECK(result == 0 || result == 1 || result == -1);
    if (result != 1)
        FUZZ_CHECK(prompter.count == 0);
    if (prompter.count == 1) {
        // A refused header leaves the image as it was.
        for (int entry = 0; entry < CtParaImage::EntryCount; ++entry)
            FUZZ_CHECK(image[entry] == Marker);
    }
    return result;
}

// A text item cannot hold a double quote: the format has no escape for it.
bool writable(const ParaSet& set)
{
    for (const QString* text : {&set.axis.sizeText, &set.axis.letter})
        if (text->contains(u'"'))
            return false;
    return true;
}

// A valid set goes out to a file and comes back as the writer left it (the
// writer rebuilds the motor code from its pieces).
void checkRoundTrip(const ParaSet& set)
{
    if (!writable(set))
        return;
    ParaSet saved = set;
    const QString path = FuzzEnvironment::instance().writeFile(QStringLiteral("again.pmt"), {});
    FUZZ_CHECK(SaveParaFile(path, saved) == 0);
    CtParaImage image;
    CountingPrompter prompter;
    FUZZ_CHECK(LoadParaFile(path, image, prompter) == 0);
    ParaSet back;
    TakeCtParaImage(image, back);
    FUZZ_CHECK(Fields(saved) == Fields(back));
}

// A valid set is what Write to C/T sends: three blocks of a digit and 16
// bytes, where a value that does not fit its field shows as "X".
void checkBlocks(const ParaSet& set)
{
    const std::array<QString, 3> blocks = EncodeParaBlocks(set);
    for (int b = 0; b < 3; ++b) {
        const QString& block = blocks.at(size_t(b));
        FUZZ_CHECK(block.startsWith(QString::number(b)) && block.size() <= 33);
        for (const QChar c : block)
            FUZZ_CHECK(QStringLiteral("0123456789ABCDEFX").contains(c));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = FuzzEnvironment::instance().writeFile(QStringLiteral("fuzz.pmt"), data, size);
    const int result = checkReader(path);

    CountingPrompter prompter;
    ScriptedFileChooser files;
    files.setNextFileName(path);
    ParaFileCommands commands(prompter, files);
    ParaData page;
    ParaScreen screen;
    const ParaSet before = page.set;
    commands.cmdReadParaFile_Click(page, screen);
    if (result == -1) {
        FUZZ_CHECK(prompter.count == 1 && Fields(page.set) == Fields(before));
        return 0;
    }
    // Taken and shown (the file named) only after a clean read.
    FUZZ_CHECK((page.fileName == path) == (result == 0 && prompter.count == 0));
    if (result == 0 && prompter.count == 0 && ParametaValueCheck(page.set) == 0) {
        checkRoundTrip(page.set);
        checkBlocks(page.set);
    }
    return 0;
}
