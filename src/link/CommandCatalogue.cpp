#include "link/CommandCatalogue.h"

#include "common/MessageTable.h"
#include "link/ErrorList.h"
#include "link/VersionQuery.h"

#include <array>

namespace {

using Id = CommandCatalogue::Id;

// The meanings in the message table.
constexpr int CheckText = 5500;
constexpr int ModeText = 5501;
constexpr int WriteBlockText = 5504;
constexpr int UnknownRequestText = 5517;
constexpr int NotOpenedText = 5518;
constexpr int AcknowledgedText = 5520;
constexpr int StatusText = 5521; // 5521..5524 for the digits 0..3
constexpr int UnknownStatusText = 5525;
constexpr int BlockDataText = 5526;
constexpr int BlockAcceptedText = 5527;
constexpr int RecordText = 5528;
constexpr int InputsText = 5530;
constexpr int OutputsText = 5531;
constexpr int VersionText = 5532;
constexpr int OldVersionText = 5533;
constexpr int ErrorReplyText = 5534;
constexpr int ErrorReplyBareText = 5535;
constexpr int NotAReplyText = 5536;
constexpr int TimedOutText = 5537;
constexpr int WrongReplyText = 5538;
constexpr int PortLostText = 5539;
// Not found in the error list.
constexpr int NoErrorInformation = 32;

struct Entry {
    CommandCatalogue::Command command;
    // What a request means; %1, where the text has one, is its data field.
    int request;
};

// In the order of CommandCatalogue::Id.
constexpr std::array<Entry, 17> Table{{
    {{"0CM", 6, 2000}, CheckText},
    {{"0CM", 6, 5000}, ModeText},
    {{"0RA", 6, 2000}, 5502},
    {{"0RD", 38, 3000}, 5503},
    {{"0WD", 6, 5000}, WriteBlockText},
    {{"0WE", 5, 5000}, 5505},
    {{"0WF", 5, 5000}, 5506},
    {{"0RP", 23, 5000}, 5507},
    {{"0WP", 7, 5000}, 5508},
    {{"0WA", 5, 5000}, 5509},
    {{"0MP", 7, 5000}, 5510},
    {{"0AR", 5, 2000}, 5511},
    {{"0RI", 8, 1000}, 5512},
    {{"0RO", 7, 1000}, 5513},
    {{"0WO", 7, 1000}, 5514},
    {{"0RV", 11, 5000}, 5515},
    {{"0%C", 16, 5000}, 5516},
}};

const Entry* entryFor(const QByteArray& code)
{
    for (const Entry& e : Table) {
        if (code == e.command.code)
            return &e;
    }
    return nullptr;
}

QString dataOf(const QByteArray& frame)
{
    return QString::fromLatin1(frame.mid(3));
}

QString statusMeaning(const QString& digit)
{
    if (digit.size() == 1 && digit[0] >= u'0' && digit[0] <= u'3')
        return Msg(StatusText + (digit[0].unicode() - u'0'));
    return Msg(UnknownStatusText).arg(digit);
}

QString errorMeaning(const QByteArray& line, const ErrorList& errors)
{
    const QString code = QString::fromLatin1(line.mid(3, 3));
    if (errors.missing())
        return Msg(ErrorReplyBareText).arg(code);
    // The list's key leaves out the code's middle character.
    const auto entry = errors.find(code.left(1) + code.mid(2, 1));
    return Msg(ErrorReplyText).arg(code, entry ? entry->text : Msg(NoErrorInformation));
}

} // namespace

const CommandCatalogue::Command& CommandCatalogue::command(Id id)
{
    return Table.at(static_cast<std::size_t>(id)).command;
}

// "0CM6" is the communication check; the other digits switch the mode.
QString CommandCatalogue::meaningOfRequest(const QByteArray& frame)
{
    const Entry* entry = entryFor(frame.left(3));
    if (!entry)
        return Msg(UnknownRequestText);
    if (entry->request == CheckText && frame != "0CM6")
        return Msg(ModeText).arg(dataOf(frame));
    const QString text = Msg(entry->request);
    if (!text.contains(u"%1"))
        return text;
    const QString data = dataOf(frame);
    // A parameter block's data is its digit and 32 hexadecimal characters.
    return text.arg(entry->request == WriteBlockText ? data.left(1) : data);
}

QString CommandCatalogue::meaningOfReply(const QByteArray& line, const ErrorList& errors)
{
    if (line.startsWith("0%%"))
        return errorMeaning(line, errors);
    const QByteArray code = line.left(3);
    const QString data = dataOf(line);
    if (code == "0RA")
        return statusMeaning(data);
    if (code == "0RD")
        return Msg(BlockDataText).arg(data.left(1));
    if (code == "0WD")
        return Msg(BlockAcceptedText).arg(data);
    if (code == "0RP")
        return Msg(RecordText);
    if (code == "0RI")
        return Msg(InputsText).arg(data);
    if (code == "0RO" || code == "0WO")
        return Msg(OutputsText).arg(data);
    if (code == "0RV")
        return Msg(VersionText).arg(VersionQuery::versionText(data.mid(3, 3)), data.left(3));
    if (code == "0%C")
        return Msg(OldVersionText);
    return entryFor(code) ? Msg(AcknowledgedText) : Msg(NotAReplyText);
}

QString CommandCatalogue::meaningOfFailure(LinkOutcome::Kind kind, int timeoutMs)
{
    switch (kind) {
    case LinkOutcome::Kind::TimedOut:
        return Msg(TimedOutText).arg(timeoutMs);
    case LinkOutcome::Kind::WrongReply:
        return Msg(WrongReplyText);
    case LinkOutcome::Kind::PortLost:
        return Msg(PortLostText);
    case LinkOutcome::Kind::NotOpened:
        return Msg(NotOpenedText);
    default:
        return {};
    }
}
