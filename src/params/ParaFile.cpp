#include "params/ParaFile.h"

#include "common/AtomicFile.h"
#include "common/MessageTable.h"
#include "common/NumberText.h"
#include "common/RuntimeError.h"
#include "common/SeqReader.h"
#include "common/SeqWriter.h"
#include "link/Prompter.h"
#include "params/MotorCode.h"
#include "params/ParaEntries.h"
#include "params/ParaMemoryMap.h"

#include <QFileInfo>

#include <array>

namespace {

const QString Model = QStringLiteral("QM-KTR");
const QString Kind = QStringLiteral("PRM");

struct Section {
    const char* name;
    int firstEntry;
    int count;
};

constexpr std::array<Section, 6> sections{{
    {"HOME", 1, 5},
    {"AXIS", 6, 7},
    {"PG", 13, 2},
    {"ETC", 15, 8},
    {"SPECIAL", 23, 6},
    {"RESERVED", 29, 7},
}};

void writeValue(SeqWriter& out, const QVariant& value)
{
    if (value.typeId() == QMetaType::QString)
        out.text(value.toString());
    else
        out.number(value.toDouble());
    out.endLine();
}

// A value as the sequential reader gives it to a variant: quoted items and
// texts that are not numbers stay texts, numbers become numbers.
QVariant readValue(SeqReader& in)
{
    const SeqReader::Item item = in.readItem();
    if (!item.quoted && IsNumeric(item.text))
        return ToNumber(item.text);
    return item.text;
}

void cutMotorCode(CtParaImage& image)
{
    const QString code = image[MotorCodeEntry].toString();
    if (code.isEmpty())
        return;
    const MotorCodeParts parts = SplitMotorCode(code);
    image[MotorSizeEntry] = parts.sizeText;
    image[MotorLetterEntry] = parts.letter;
    image[MotorNumberEntry] = parts.motorNumber;
}

// Reads the sections; false when a section name is out of order.
bool readSections(SeqReader& in, int sectionCount, CtParaImage& image)
{
    int entry = 1;
    for (int s = 0; s < sectionCount; ++s) {
        const QString name = in.readText();
        const int count = RoundToInt16(in.readNumber());
        in.readItem();
        if (s >= int(sections.size()))
            throw RuntimeError(RuntimeError::Kind::Subscript, QStringLiteral("section"));
        if (name != QLatin1String(sections.at(size_t(s)).name))
            return false;
        for (int i = 0; i < count; ++i, ++entry) {
            if (entry >= CtParaImage::EntryCount)
                throw RuntimeError(RuntimeError::Kind::Subscript, QStringLiteral("entry"));
            image[entry] = readValue(in);
        }
    }
    return true;
}

} // namespace

int SaveParaFile(const QString& path, ParaSet& set, QString* errorString)
{
    set.axis.motorCode = MotorCodeText(set.axis.sizeText, set.axis.letter, set.axis.motorNumber);

    SeqWriter out;
    out.text(Model).text(Kind).endLine();
    out.number(double(sections.size())).endLine();
    for (const Section& section : sections) {
        out.text(QLatin1String(section.name)).number(section.count).number(1).endLine();
        for (int entry = section.firstEntry; entry < section.firstEntry + section.count; ++entry)
            writeValue(out, ParaEntryValue(set, entry));
    }
    return AtomicFile::write(path, out.bytes(), errorString) ? 0 : 1;
}

int LoadParaFile(const QString& path, CtParaImage& image, Prompter& prompter)
{
    try {
        SeqReader in = SeqReader::fromFile(path);
        const QString model = in.readText();
        const QString kind = in.readText();
        const int sectionCount = RoundToInt16(in.readNumber());
        if (model != Model || kind != Kind) {
            prompter.tell(MsgLines({22, 20}));
            return 1;
        }
        image.clear();
        image[0] = QFileInfo(path).fileName();
        const bool inOrder = readSections(in, sectionCount, image);
        cutMotorCode(image);
        return inOrder ? 0 : 1;
    } catch (const RuntimeError&) {
        return -1;
    }
}
