#include "opdata/OpDataFile.h"

#include "common/AtomicFile.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "common/SeqReader.h"
#include "common/SeqWriter.h"
#include "link/Prompter.h"
#include "opdata/PosiTable.h"

namespace {

const QString FormatName = QStringLiteral("QM-B4");
const QString DataKind = QStringLiteral("Position");
const QString NewGeneration = QStringLiteral("NEW");
const QString OldGeneration = QStringLiteral("OLD");
constexpr int MaxThirdItem = 5;
constexpr int NewLabel = 148;
constexpr int OldLabel = 149;

struct NotOpData {};

// Reads the header and the item after it; the item goes into VEL as a
// placeholder until the row is read.
void readHeader(SeqReader& in, PosiTable& PosiDataRead)
{
    const QString name = in.readText();
    const QString kind = in.readText();
    if (name != FormatName || kind != DataKind)
        throw NotOpData{};
    const QString third = in.readText();
    PosiDataRead[PosiTable::VEL] = third;
    if (third.size() > MaxThirdItem)
        throw NotOpData{};
}

void readRow0(SeqReader& in, PosiTable& PosiDataRead)
{
    in.readItem(); // row number
    const qint16 vel = RoundToInt16(in.readNumber());
    const qint16 acc = RoundToInt16(in.readNumber());
    in.readItem(); // Spare1: not kept
    in.readItem(); // Spare2: not kept
    in.readItem(); // DIR: not kept
    const qint32 division = RoundToInt32(in.readNumber());
    const qint32 gear = RoundToInt32(in.readNumber());
    in.readItem(); // Spare3: not kept
    PosiDataRead[PosiTable::VEL] = vel;
    PosiDataRead[PosiTable::ACC] = acc;
    PosiDataRead[PosiTable::DIVISION] = division;
    PosiDataRead[PosiTable::GEAR] = gear;
}

} // namespace

QByteArray OpDataFile::format(const PosiTable& PosiData)
{
    SeqWriter out;
    out.text(FormatName).text(DataKind).endLine();
    out.text(QString()).text(NewGeneration).endLine();
    out.number(0);
    for (int c = PosiTable::VEL; c <= PosiTable::Spare3; ++c)
        out.text(PosiData.cell(0, c).toString().trimmed());
    out.endLine();
    return out.bytes();
}

bool OpDataFile::write(const QString& path, const PosiTable& PosiData, QString* errorString)
{
    return AtomicFile::write(path, format(PosiData), errorString);
}

int OpDataFile::ReadPosidataFile(const QString& path, PosiTable& PosiDataRead,
                                 int& generationLabel, Prompter& prompter)
{
    try {
        SeqReader in = SeqReader::fromFile(path);
        readHeader(in, PosiDataRead);
        QString generation = in.readText();
        if (generation != OldGeneration && generation != NewGeneration) {
            // An old file: its data begins right after the item already read.
            in = SeqReader::fromFile(path);
            readHeader(in, PosiDataRead);
            generation = OldGeneration;
        }
        generationLabel = generation == NewGeneration ? NewLabel : OldLabel;
        readRow0(in, PosiDataRead);
        return 0;
    } catch (const NotOpData&) {
    } catch (const RuntimeError&) {
    }
    prompter.tell(MsgLines({21, 0, 20}), Prompter::Icon::Exclamation);
    return 1;
}
