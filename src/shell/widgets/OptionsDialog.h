#pragma once

#include <QDialog>

class Link;
class Prompter;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;

// The options dialog (frmOption): the serial port and whether it is held
// open for the run, whether writes are read back to confirm them, the
// position display unit and rounding, the language.
//
// Ports are offered as "COM" + n, n being the numbers 1..32 that the port
// scan could open. While the built-in virtual controller answers, the list
// holds only that controller and the port number is left as it was. Where devices have names rather than numbers, each entry
// also shows the device its number stands for ("COM1  (/dev/ttyUSB0)"); the
// number is still read from the fourth character of the entry. A device can
// also be named outright in comboPortName (a serial device of the system,
// or any terminal device typed in, such as the virtual controller's
// pseudo-terminal): it is stored under PortName and replaces the numbered
// port until it is emptied again.
//
// txtUnit shows and edits the unit identification of the port chosen (the
// journal's entries and the reports of that port carry it).
//
// Apply does what OK does and leaves the dialog open.
class OptionsDialog : public QDialog {
    Q_OBJECT
public:
    // simulator: the built-in virtual controller answers for this run.
    OptionsDialog(Link& link, Prompter& prompter, bool simulator, QWidget* mainWindow);

    void Form_Load();

    void cmdOK_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

    // The port number that a list entry names: the trimmed text from its
    // fourth character on ("COM12" gives 12); 0 when that is not a number
    // from 1 to 32.
    static int portNumberOf(const QString& entry);

    QTabWidget* SSTabOption;
    QComboBox* comboPortNo;
    QComboBox* comboPortName;
    QCheckBox* chkPortOccupy;
    QCheckBox* chkConfirmWrites; // stored under ConfirmWrites
    QLineEdit* txtUnit;
    QLabel* lblSimulatorNote;
    QGroupBox* framDispUnit;
    QRadioButton* optDispPos_0;   // millimetres (gDispMmUnit)
    QRadioButton* optDispPos_1;   // pulses
    QRadioButton* optSutiSyori_0; // round up (gMmRoundUp)
    QRadioButton* optSutiSyori_1; // round to nearest
    QLabel* lblTyuijikou;
    QRadioButton* optLanguege_0; // Japanese
    QRadioButton* optLanguege_1; // English
    QPushButton* cmdOK;
    QPushButton* cmdApply;
    QPushButton* cmdCancel;

signals:
    // The port number or the device name was changed: the port label must
    // say so.
    void portChanged();
    // The serial port was open and has been closed for the new choice: the
    // main window's displays must be refreshed.
    void openPortClosed();

private:
    QWidget* buildPortTab();
    QWidget* buildUnitTab();
    QWidget* buildLanguageTab();

    void fillPortList();
    void fillDeviceList();
    void selectLanguage();
    void placeBesideMainWindow();

    void applyChoices();
    bool takePortNumber();
    bool takeDeviceName();
    // The port the choices name, as the journal names it.
    QString chosenPort() const;
    void showUnitOfChosenPort();
    void takeUnit();

    Link& m_link;
    Prompter& m_prompter;
    bool m_simulator;
    QWidget* m_mainWindow;
    // The choice the main window is using: as shown at load, then as applied.
    int m_shownPortNo = 0;
    QString m_shownDevice;
};
