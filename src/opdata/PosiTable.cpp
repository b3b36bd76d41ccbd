#include "opdata/PosiTable.h"

#include "common/RuntimeError.h"

QVariant& PosiTable::cell(int row, int column)
{
    return const_cast<QVariant&>(std::as_const(*this).cell(row, column));
}

const QVariant& PosiTable::cell(int row, int column) const
{
    if (row < 0 || row >= Rows || column < 0 || column >= Columns)
        throw RuntimeError(RuntimeError::Kind::Subscript,
                           QStringLiteral("PosiTable(%1, %2)").arg(row).arg(column));
    return m_cells[row * Columns + column];
}

qint64 PosiTable::number(Column column) const
{
    const QVariant& v = (*this)[column];
    return v.isValid() ? v.toLongLong() : 0;
}

void PosiTable::copyRow0(const PosiTable& from, Column first, Column last)
{
    for (int c = first; c <= last; ++c)
        cell(0, c) = from.cell(0, c);
}
