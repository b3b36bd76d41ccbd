#include "sim/MemoryImage.h"

#include "sim/SimDefaults.h"

const QList<int>& MemoryImage::blockNumbers()
{
    static const QList<int> numbers = {0, 1, 2, 7};
    return numbers;
}

bool MemoryImage::isBlock(int number)
{
    return blockNumbers().contains(number);
}

bool MemoryImage::isRecord(int number)
{
    return number >= FirstRecord && number <= LastRecord;
}

MemoryImage MemoryImage::factory()
{
    MemoryImage image;
    for (int n : blockNumbers())
        image.blocks.insert(n, SimDefaults::block(n));
    image.records = QList<QByteArray>(LastRecord + 1, SimDefaults::emptyRecord());
    image.records[FirstRecord] = SimDefaults::record();
    return image;
}
