#pragma once

#include <QVariant>

#include <array>

// The parameter blocks 0 to 2 as last read from the controller (or loaded
// from a parameter file): 41 entries numbered 0 to 40. Entry 0 is never
// filled by a controller read; 37 to 39 hold the motor code pieces and 12
// the motor code joined from them.
class CtParaImage {
public:
    static constexpr int EntryCount = 41;

    CtParaImage() { clear(); }

    // Every entry to the empty text.
    void clear() { m_entries.fill(QVariant(QString())); }

    QVariant& operator[](int entry) { return m_entries.at(size_t(entry)); }
    const QVariant& operator[](int entry) const { return m_entries.at(size_t(entry)); }

private:
    std::array<QVariant, EntryCount> m_entries;
};
