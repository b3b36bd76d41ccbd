#pragma once

#include <QDialog>
#include <QString>

class FileChooser;
class Prompter;
class QLabel;
class QPushButton;
class QRadioButton;

// frmPrintSelect: asks which operation data to print, the data in the grid
// or a saved file picked with Browse. The opener says whether only a file
// can be printed, shows the dialog modally and then reads the public results. The parameter-file
// row is kept in the form but never shown: nothing reads its choice.
class PrintSelectDialog : public QDialog {
    Q_OBJECT
public:
    PrintSelectDialog(FileChooser& chooser, Prompter& prompter, QWidget* mainWindow,
                      bool fileOnly);

    // Results, read after the dialog has closed.
    bool Cancelled = false;
    bool PrintGridData = false;
    bool PrintFileData = false;
    bool PrintParaGrid = false;
    bool PrintParaFile = false;
    QString PosiFileName;
    QString ParaFileName;

    // The option pair optPrintPosi: index 0 "Inside of Grid", index 1 "File".
    QRadioButton* optPrintPosi_0 = nullptr;
    QRadioButton* optPrintPosi_1 = nullptr;
    QLabel* lblPrintPosiName = nullptr;
    QPushButton* cmdSelectPosiFile = nullptr;
    QRadioButton* optPrintPara = nullptr;
    QLabel* lblPrintParaName = nullptr;
    QPushButton* cmdSelectParaFile = nullptr;
    QPushButton* cmdPrintSet = nullptr;
    QPushButton* cmdPrintCancel = nullptr;

public slots:
    // Cancel, Escape and the window frame all leave this way.
    void reject() override;

private slots:
    void optPrintPosi_Click();
    void optPrintPara_Click();
    void cmdSelectPosiFile_Click();
    void cmdSelectParaFile_Click();
    void cmdPrintSet_Click();

private:
    void buildPositionRow();
    void buildParameterRow();
    void buildButtons();
    void Form_Load(QWidget* mainWindow, bool fileOnly);
    void moveFileRowUp();
    bool fileChoiceValid() const;

    FileChooser& m_chooser;
    Prompter& m_prompter;
};
