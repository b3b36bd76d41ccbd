// The error list on arbitrary bytes: read at start; a list that was read
// finds each of its keys at the first entry that has it.
#include "FuzzSupport.h"

#include "common/MessageTable.h"
#include "link/ErrorList.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzEnvironment::instance().writeFile(Msg(120), data, size);
    ErrorList errors;
    const int result = checkedRead([&errors](Prompter& prompter) { return errors.Get_ErrorList(prompter); });
    FUZZ_CHECK(errors.missing() == (result == 1));
    FUZZ_CHECK(errors.entries().size() <= ErrorList::MaxEntries);
    if (result == 1) {
        FUZZ_CHECK(errors.entries().isEmpty());
        return 0;
    }
    for (qsizetype i = 0; i < errors.entries().size(); ++i) {
        const ErrorList::Entry& entry = errors.entries().at(i);
        const auto found = errors.find(entry.key);
        FUZZ_CHECK(found && found->key == entry.key);
        bool earlier = false;
        for (qsizetype k = 0; k < i; ++k)
            earlier = earlier || errors.entries().at(k).key == entry.key;
        FUZZ_CHECK(earlier || found->text == entry.text);
    }
    return 0;
}
