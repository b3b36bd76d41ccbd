#include "record/widgets/ReportDialog.h"

#include "common/MessageTable.h"
#include "common/widgets/Twips.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>

namespace {

constexpr int Title = 5650;
constexpr int UnitCaption = 5685;
constexpr int NoteCaption = 5656;
constexpr int OffsetTwips = 500;
constexpr int FieldWidthTwips = 5000;

} // namespace

ReportDialog::ReportDialog(const QString& proposedUnit, QWidget* mainWindow)
    : QDialog(mainWindow)
    , txtReportUnit(new QLineEdit(proposedUnit, this))
    , txtReportNote(new QLineEdit(this))
{
    setObjectName(QStringLiteral("frmReport"));
    setWindowTitle(Msg(Title));
    txtReportUnit->setObjectName(QStringLiteral("txtReportUnit"));
    txtReportNote->setObjectName(QStringLiteral("txtReportNote"));
    txtReportUnit->setMinimumWidth(Twips::toPixels(FieldWidthTwips));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* form = new QFormLayout(this);
    form->addRow(Msg(UnitCaption), txtReportUnit);
    form->addRow(Msg(NoteCaption), txtReportNote);
    form->addRow(buttons);
    if (mainWindow) {
        const int offset = Twips::toPixels(OffsetTwips);
        move(mainWindow->pos() + QPoint(offset, offset));
    }
}

QString ReportDialog::unit() const
{
    return txtReportUnit->text().trimmed();
}

QString ReportDialog::note() const
{
    return txtReportNote->text().trimmed();
}
