#include "params/widgets/ParaScreenView.h"

#include "device/widgets/SizeListCombo.h"
#include "params/widgets/ParaPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

namespace {

int optionValue(const QRadioButton* zero, const QRadioButton* one)
{
    if (zero->isChecked())
        return 0;
    return one->isChecked() ? 1 : -1;
}

// Neither button of a pair is set for a value outside the pair.
void setOption(QRadioButton* zero, QRadioButton* one, int value)
{
    zero->setAutoExclusive(false);
    one->setAutoExclusive(false);
    zero->setChecked(value == 0);
    one->setChecked(value == 1);
    zero->setAutoExclusive(true);
    one->setAutoExclusive(true);
}

// Only a changed text is written, so the caret of an unchanged box stays.
void setText(QLineEdit* box, const QString& text)
{
    if (box->text() != text)
        box->setText(text);
}

} // namespace

ParaScreenView::ParaScreenView(ParaPage& page, QLineEdit& txtDenryu)
    : m_page(page)
    , m_txtDenryu(txtDenryu)
{
}

ParaScreen ParaScreenView::capture() const
{
    const ParaPage& p = m_page;
    ParaScreen s;
    s.txtHomeOffset = p.txtHomeOffset->text();
    s.txtHomeVel = p.txtHomeVel->text();
    s.txtHomeOfsVel = p.txtHomeOfsVel->text();
    s.txtAxisPulse = p.txtAxisPulse->text();
    s.comboAxisAutoDrv = p.comboAxisAutoDrv->currentIndex();
    s.comboActSize = p.comboActSize->currentText();
    s.comboPgFunc = p.comboPgFunc->currentIndex();
    s.txtPgAlarm = p.txtPgAlarm->text();
    s.comboHomeOut = p.comboHomeOut->currentIndex();
    s.txtInpLimit = p.txtInpLimit->text();
    s.txtPgCheckTimer = p.txtPgCheckTimer->text();
    s.comboAutoHome = p.comboAutoHome->currentIndex();
    s.txtLsSerchTimer = p.txtLsSerchTimer->text();
    s.optEmgLogic = optionValue(p.optEmgLogic_0, p.optEmgLogic_1);
    s.optAlarmAutoClear = optionValue(p.optAlarmAutoClear_0, p.optAlarmAutoClear_1);
    s.chkTokuParaChange = p.chkTokuParaChange->isChecked();
    s.specialControlsEnabled = p.txtPgCheckTimer->isEnabled();
    s.txtDenryu = m_txtDenryu.text();
    return s;
}

void ParaScreenView::apply(const ParaScreen& s)
{
    ParaPage& p = m_page;
    setText(p.txtHomeOffset, s.txtHomeOffset);
    setText(p.txtHomeVel, s.txtHomeVel);
    setText(p.txtHomeOfsVel, s.txtHomeOfsVel);
    setText(p.txtAxisPulse, s.txtAxisPulse);
    p.comboAxisAutoDrv->setCurrentIndex(s.comboAxisAutoDrv);
    if (p.comboActSize->currentText() != s.comboActSize)
        SizeListCombo::setText(p.comboActSize, s.comboActSize);
    p.comboPgFunc->setCurrentIndex(s.comboPgFunc);
    setText(p.txtPgAlarm, s.txtPgAlarm);
    p.comboHomeOut->setCurrentIndex(s.comboHomeOut);
    setText(p.txtInpLimit, s.txtInpLimit);
    setText(p.txtPgCheckTimer, s.txtPgCheckTimer);
    p.comboAutoHome->setCurrentIndex(s.comboAutoHome);
    setText(p.txtLsSerchTimer, s.txtLsSerchTimer);
    setOption(p.optEmgLogic_0, p.optEmgLogic_1, s.optEmgLogic);
    setOption(p.optAlarmAutoClear_0, p.optAlarmAutoClear_1, s.optAlarmAutoClear);
    p.chkTokuParaChange->setChecked(s.chkTokuParaChange);
    for (QWidget* w : std::initializer_list<QWidget*>{p.txtPgCheckTimer, p.txtLsSerchTimer, p.comboAutoHome,
                                                      p.optEmgLogic_0, p.optEmgLogic_1,
                                                      p.optAlarmAutoClear_0, p.optAlarmAutoClear_1})
        w->setEnabled(s.specialControlsEnabled);
    setText(&m_txtDenryu, s.txtDenryu);
}
