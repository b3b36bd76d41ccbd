#pragma once

#include <QString>

#include <array>

// The lamps of the input/output monitor.
enum class IoLamp {
    InputStb,
    InputStop,
    OutputAlm,
    OutputRdy,
    OutputInp,
    OutputOut1,
    OutputOut2
};

inline constexpr std::array<IoLamp, 7> AllIoLamps{
    IoLamp::InputStb,
    IoLamp::InputStop,
    IoLamp::OutputAlm,
    IoLamp::OutputRdy,
    IoLamp::OutputInp,
    IoLamp::OutputOut1,
    IoLamp::OutputOut2,
};

// The controller's input and output bits, one table per reply: indexed by
// digit (1 = the first digit after the command echo) and by bit position
// (0 = value 8, 1 = 4, 2 = 2, 3 = 1). The tables are larger than the replies,
// as the program always kept them.
class IoBits {
public:
    using InputTable = std::array<std::array<bool, 5>, 4>;  // InputBits: "0RI", 3 digits
    using OutputTable = std::array<std::array<bool, 5>, 3>; // OutputBits, OutputToggle: "0RO", 2 digits

    static constexpr int InputDigits = 3;
    static constexpr int OutputDigits = 2;
    static constexpr int BitsPerDigit = 4;

    // Hexadecimal digits into digits 1..n of a table; a character that is no
    // hexadecimal digit counts as 0.
    template<typename Table>
    static void decode(const QString& digits, Table& table)
    {
        for (int d = 1; d < int(table.size()) && d <= digits.size(); ++d) {
            const int value = digitValue(digits[d - 1]);
            for (int b = 0; b < BitsPerDigit; ++b)
                table[d][b] = (value & (8 >> b)) != 0;
        }
    }

    // Digits 1 and 2 of the output table as the two hexadecimal digits of "0WO".
    static QString outputDigits(const OutputTable& OutputBits);

    // Where a lamp's bit is.
    struct Source {
        bool output;
        int digit;
        int bit;
    };
    static Source source(IoLamp lamp);
    static bool lampOn(IoLamp lamp, const InputTable& InputBits, const OutputTable& OutputBits);

    // The lamp's label on the tab ("STB", "IN-P", "OUT1"), the same in
    // both languages.
    static QString label(IoLamp lamp);
    // Where the lamp stands in AllIoLamps.
    static int index(IoLamp lamp);

    // The lamp's objectName on the tab, e.g. "imgInputStb".
    static QString objectName(IoLamp lamp);

private:
    static int digitValue(QChar c);
};
