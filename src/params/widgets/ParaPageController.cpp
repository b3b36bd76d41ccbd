#include "params/widgets/ParaPageController.h"

#include "common/RuntimeError.h"
#include "device/ActSizeList.h"
#include "device/widgets/DeviceDialog.h"
#include "device/widgets/SizeListCombo.h"
#include "link/SequenceContext.h"
#include "params/ParaFileCommands.h"
#include "params/ParaReadCommand.h"
#include "params/ParaVerifyCommand.h"
#include "params/ParaWriteCommand.h"
#include "params/StandardPara.h"
#include "params/TakeCtParaImage.h"
#include "params/TokuParaChange.h"
#include "params/widgets/ParaEntryRules.h"
#include "params/widgets/ParaPage.h"
#include "print/widgets/PrinterOutput.h"
#include "record/JournalAction.h"
#include "record/JournalRecorder.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

ParaPageController::ParaPageController(ParaPage& page, QLineEdit& current, SequenceContext& ctx,
                                       JournalRecorder& journal, QWidget* window)
    : QObject(window)
    , m_window(window)
    , m_page(page)
    , m_ctx(ctx)
    , m_journal(journal)
    , m_view(page, current)
    , m_print([&ctx, window](Printout& printout) {
        return PrinterOutput(ctx.files, ctx.prompter, window).print(printout);
    })
{
    setObjectName(QStringLiteral("ParaPageController"));
    auto* rules = new ParaEntryRules(this);
    for (QLineEdit* box : m_page.findChildren<QLineEdit*>())
        rules->watch(box);
    connectButtons();
    watchEdits();
}

void ParaPageController::connectButtons()
{
    const auto clicked = [this](QAbstractButton* button, void (ParaPageController::*handler)()) {
        connect(button, &QAbstractButton::clicked, this, handler);
    };
    clicked(m_page.cmdParaRead, &ParaPageController::cmdParaRead_Click);
    clicked(m_page.cmdParaWrite, &ParaPageController::cmdParaWrite_Click);
    clicked(m_page.cmdConpareCT, &ParaPageController::cmdConpareCT_Click);
    clicked(m_page.cmdConpareFile, &ParaPageController::cmdConpareFile_Click);
    clicked(m_page.cmdSaveParaFile, &ParaPageController::cmdSaveParaFile_Click);
    clicked(m_page.cmdReadParaFile, &ParaPageController::cmdReadParaFile_Click);
    clicked(m_page.cmdIniPrm, &ParaPageController::cmdIniPrm_Click);
    clicked(m_page.chkTokuParaChange, &ParaPageController::chkTokuParaChange_Click);
    clicked(m_page.cmdParaPrint, &ParaPageController::cmdParaPrint_Click);
    clicked(m_page.cmdParaFilePrint, &ParaPageController::cmdParaFilePrint_Click);
}

// Only what the user does marks the page edited; values shown by the
// program do not.
void ParaPageController::watchEdits()
{
    for (QLineEdit* box : m_page.findChildren<QLineEdit*>())
        connect(box, &QLineEdit::textEdited, this, &ParaPageController::markEdited);
    for (QComboBox* list : m_page.findChildren<QComboBox*>())
        connect(list, &QComboBox::activated, this, &ParaPageController::markEdited);
    for (QRadioButton* option : m_page.findChildren<QRadioButton*>())
        connect(option, &QRadioButton::clicked, this, &ParaPageController::markEdited);
}

ParaPrintCommands ParaPageController::printCommands()
{
    SequenceContext& ctx = context();
    return ParaPrintCommands(ctx.prompter, ctx.files, ctx.lock, m_print);
}

void ParaPageController::onScreen(const std::function<void(ParaScreen&)>& step)
{
    ParaScreen screen = m_view.capture();
    step(screen);
    m_view.apply(screen);
}

void ParaPageController::LoadDeviceListAtStart()
{
    SizeListBox sizes = SizeListCombo::read(m_page.comboActSize);
    if (::LoadDeviceListAtStart(m_devices, sizes, context().prompter) == 0)
        SizeListCombo::show(sizes, m_page.comboActSize);
}

void ParaPageController::cmdParaRead_Click()
{
    onScreen([this](ParaScreen& s) {
        ParaReadCommand read(context(), m_data, m_devices);
        read.cmdParaRead_Click(s);
        if (read.parametersShown())
            m_journal.rememberParameters(m_data.set);
    });
}

// The entry names the values that differ from the controller's, when they
// are known.
void ParaPageController::cmdParaWrite_Click()
{
    onScreen([this](ParaScreen& s) {
        JournalAction entry(m_journal, JournalEntry::ParamsWrite);
        const bool written = ParaWriteCommand(context(), m_data).cmdParaWrite_Click(s) == 0;
        entry.setWritten(m_journal.writtenParameters(m_data.set));
        entry.finish(written);
        if (written)
            m_journal.rememberParameters(m_data.set);
    });
}

void ParaPageController::cmdConpareCT_Click()
{
    onScreen([this](ParaScreen& s) {
        if (ParaVerifyCommand(context(), m_data).cmdConpareCT_Click(s))
            rememberImage();
    });
}

// An image the set cannot take (a value too large for its field) leaves
// what was known unknown.
void ParaPageController::rememberImage()
{
    ParaSet set = m_data.set;
    try {
        TakeCtParaImage(m_data.image, set);
        m_journal.rememberParameters(set);
    } catch (const RuntimeError&) {
        m_journal.forgetParameters();
    }
}

void ParaPageController::cmdConpareFile_Click()
{
    onScreen([this](ParaScreen& s) { ParaVerifyCommand(context(), m_data).cmdConpareFile_Click(s); });
}

void ParaPageController::cmdSaveParaFile_Click()
{
    onScreen([this](ParaScreen& s) {
        ParaFileCommands(context().prompter, context().files).cmdSaveParaFile_Click(m_data, s);
    });
}

void ParaPageController::cmdReadParaFile_Click()
{
    onScreen([this](ParaScreen& s) {
        ParaFileCommands(context().prompter, context().files).cmdReadParaFile_Click(m_data, s);
    });
}

// The device dialog is made for each opening.
void ParaPageController::cmdIniPrm_Click()
{
    onScreen([this](ParaScreen& s) {
        SequenceContext& ctx = context();
        DeviceDialog dialog(m_devices, ctx.prompter, m_page.comboActSize, m_window);
        StandardPara(ctx.lock, ctx.prompter, dialog).cmdIniPrm_Click(m_data, s);
    });
}

void ParaPageController::chkTokuParaChange_Click()
{
    onScreen([this](ParaScreen& s) { ::chkTokuParaChange_Click(s, context().prompter); });
}

void ParaPageController::cmdParaPrint_Click()
{
    onScreen([this](ParaScreen& s) { printCommands().cmdParaPrint_Click(m_data, s); });
}

void ParaPageController::cmdParaFilePrint_Click()
{
    printCommands().cmdParaFilePrint_Click();
}
