#pragma once

#include <QDialog>

class QLineEdit;

// Asks for the unit identification and a note before a commissioning
// report is read. The unit is proposed as given last on this port.
class ReportDialog : public QDialog {
    Q_OBJECT
public:
    ReportDialog(const QString& proposedUnit, QWidget* mainWindow);

    QString unit() const;
    QString note() const;

    QLineEdit* txtReportUnit;
    QLineEdit* txtReportNote;
};
