#include "print/widgets/PrintSelectDialog.h"

#include "common/FileChooser.h"
#include "common/MessageTable.h"
#include "common/widgets/CaptionLoader.h"
#include "common/widgets/F1Filter.h"
#include "common/widgets/Twips.h"
#include "link/Prompter.h"

#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr int TitleMsg = 1801;
constexpr int SelectMsg = 1802;
constexpr int PositionDataMsg = 1803;
constexpr int InsideOfGridMsg = 1804;
constexpr int FileMsg = 1805;
constexpr int BrowseMsg = 1807;
constexpr int ParaPlaceholderMsg = 1821;
constexpr int PosiPlaceholderMsg = 1822;
constexpr int InvalidFileMsg = 1824;
constexpr int ParaBrowseTitleMsg = 1826;
constexpr int ParaFilterMsg = 1827;
constexpr int PosiBrowseTitleMsg = 1828;
constexpr int PosiFilterMsg = 351;
constexpr int PosiExtensionMsg = 51;
constexpr int SetMsg = 4750;
constexpr int CancelMsg = 4751;
constexpr int ParameterMsg = 4752;

const QString ParaExtension = QStringLiteral("pmt");

// Where the opener's window is, the dialog sits this far right and down.
constexpr int OffsetTwips = 500;
// With the options hidden, the file row moves up to here (twips, in the
// frame), the button keeping its distance from the label's left edge.
constexpr int FileOnlyTop = 600;
constexpr int FileOnlyLeft = 1000;
constexpr int ButtonFromLabel = 2280;

// Controls are laid out in twips, the unit the positions above are given in.
void place(QWidget* w, int left, int top, int width, int height)
{
    w->setGeometry(Twips::toPixels(left), Twips::toPixels(top),
                   Twips::toPixels(width), Twips::toPixels(height));
}

// A control with its caption given by message number, as the caption
// loader expects it; 0 for a control without a caption.
template<typename W>
W* control(QWidget* parent, const char* name, int captionMsg)
{
    auto* w = new W(parent);
    w->setObjectName(QString::fromLatin1(name));
    if (captionMsg > 0)
        CaptionLoader::setTag(w, captionMsg);
    return w;
}

} // namespace

PrintSelectDialog::PrintSelectDialog(FileChooser& chooser, Prompter& prompter, QWidget* mainWindow,
                                     bool fileOnly)
    : QDialog(mainWindow)
    , m_chooser(chooser)
    , m_prompter(prompter)
{
    setObjectName(QStringLiteral("frmPrintSelect"));
    CaptionLoader::setTag(this, TitleMsg);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    installEventFilter(new F1Filter(this));
    place(control<QLabel>(this, "lblSelect", SelectMsg), 240, 120, 5040, 300);
    buildPositionRow();
    buildParameterRow();
    buildButtons();
    setFixedSize(Twips::toPixels(5520), Twips::toPixels(2880));
    Form_Load(mainWindow, fileOnly);
}

void PrintSelectDialog::buildPositionRow()
{
    auto* framPosi = control<QGroupBox>(this, "framPosi", PositionDataMsg);
    place(framPosi, 240, 480, 5040, 1680);
    optPrintPosi_0 = control<QRadioButton>(framPosi, "optPrintPosi_0", InsideOfGridMsg);
    place(optPrintPosi_0, 240, 300, 4560, 300);
    optPrintPosi_1 = control<QRadioButton>(framPosi, "optPrintPosi_1", FileMsg);
    place(optPrintPosi_1, 240, 660, 4560, 300);
    lblPrintPosiName = control<QLabel>(framPosi, "lblPrintPosiName", PosiPlaceholderMsg);
    lblPrintPosiName->setWordWrap(true);
    place(lblPrintPosiName, 600, 1020, 2200, 480);
    cmdSelectPosiFile = control<QPushButton>(framPosi, "cmdSelectPosiFile", BrowseMsg);
    place(cmdSelectPosiFile, 600 + ButtonFromLabel, 1080, 1200, 375);
    optPrintPosi_0->setChecked(true);
    connect(optPrintPosi_0, &QRadioButton::toggled, this, &PrintSelectDialog::optPrintPosi_Click);
    connect(cmdSelectPosiFile, &QPushButton::clicked, this, &PrintSelectDialog::cmdSelectPosiFile_Click);
}

void PrintSelectDialog::buildParameterRow()
{
    auto* framPara = control<QGroupBox>(this, "framPara", 0);
    place(framPara, 240, 2880, 5040, 600);
    // Nothing reads this row's choice, so the user never sees it.
    framPara->hide();
    optPrintPara = control<QRadioButton>(framPara, "optPrintPara", ParameterMsg);
    place(optPrintPara, 240, 180, 1320, 300);
    lblPrintParaName = control<QLabel>(framPara, "lblPrintParaName", ParaPlaceholderMsg);
    place(lblPrintParaName, 1560, 210, 2200, 300);
    cmdSelectParaFile = control<QPushButton>(framPara, "cmdSelectParaFile", BrowseMsg);
    place(cmdSelectParaFile, 3780, 150, 1200, 375);
    connect(optPrintPara, &QRadioButton::toggled, this, &PrintSelectDialog::optPrintPara_Click);
    connect(cmdSelectParaFile, &QPushButton::clicked, this, &PrintSelectDialog::cmdSelectParaFile_Click);
}

void PrintSelectDialog::buildButtons()
{
    cmdPrintSet = control<QPushButton>(this, "cmdPrintSet", SetMsg);
    place(cmdPrintSet, 2640, 2340, 1200, 375);
    cmdPrintSet->setDefault(true);
    cmdPrintCancel = control<QPushButton>(this, "cmdPrintCancel", CancelMsg);
    place(cmdPrintCancel, 4080, 2340, 1200, 375);
    connect(cmdPrintSet, &QPushButton::clicked, this, &PrintSelectDialog::cmdPrintSet_Click);
    connect(cmdPrintCancel, &QPushButton::clicked, this, &PrintSelectDialog::reject);
}

void PrintSelectDialog::Form_Load(QWidget* mainWindow, bool fileOnly)
{
    if (mainWindow) {
        const int offset = Twips::toPixels(OffsetTwips);
        move(mainWindow->window()->pos() + QPoint(offset, offset));
    }
    Cancelled = false;
    PosiFileName.clear();
    ParaFileName.clear();
    if (fileOnly)
        moveFileRowUp();
    lblPrintPosiName->setEnabled(true);
    cmdSelectPosiFile->setEnabled(true);
    CaptionLoader::apply(this);
}

void PrintSelectDialog::moveFileRowUp()
{
    lblPrintPosiName->move(Twips::toPixels(FileOnlyLeft), Twips::toPixels(FileOnlyTop));
    cmdSelectPosiFile->move(Twips::toPixels(FileOnlyLeft + ButtonFromLabel),
                            Twips::toPixels(FileOnlyTop));
    optPrintPosi_0->hide();
    optPrintPosi_1->hide();
    optPrintPosi_1->setChecked(true);
}

void PrintSelectDialog::optPrintPosi_Click()
{
    const bool file = !optPrintPosi_0->isChecked();
    lblPrintPosiName->setEnabled(file);
    cmdSelectPosiFile->setEnabled(file);
}

void PrintSelectDialog::optPrintPara_Click()
{
    lblPrintParaName->setEnabled(optPrintPara->isChecked());
    cmdSelectParaFile->setEnabled(optPrintPara->isChecked());
}

void PrintSelectDialog::cmdSelectPosiFile_Click()
{
    const QString path = m_chooser.openFile(Msg(PosiBrowseTitleMsg), Msg(PosiFilterMsg),
                                            Msg(PosiExtensionMsg));
    if (path.isEmpty())
        return;
    lblPrintPosiName->setText(QFileInfo(path).fileName());
    // A long name does not fit the label: the whole path is a hover away.
    lblPrintPosiName->setToolTip(path);
    PosiFileName = path;
}

void PrintSelectDialog::cmdSelectParaFile_Click()
{
    const QString path = m_chooser.openFile(Msg(ParaBrowseTitleMsg), Msg(ParaFilterMsg), ParaExtension);
    if (path.isEmpty())
        return;
    lblPrintParaName->setText(QFileInfo(path).fileName());
    lblPrintParaName->setToolTip(path);
    ParaFileName = path;
}

void PrintSelectDialog::cmdPrintSet_Click()
{
    PrintGridData = false;
    PrintFileData = false;
    PrintParaGrid = false;
    PrintParaFile = false;
    if (optPrintPosi_0->isChecked())
        PrintGridData = true;
    if (optPrintPosi_1->isChecked()) {
        if (!fileChoiceValid()) {
            m_prompter.tell(Msg(InvalidFileMsg));
            return;
        }
        PrintFileData = true;
    }
    accept();
}

bool PrintSelectDialog::fileChoiceValid() const
{
    return !PosiFileName.isEmpty() && lblPrintPosiName->text() != Msg(PosiPlaceholderMsg);
}

void PrintSelectDialog::reject()
{
    Cancelled = true;
    QDialog::reject();
}
