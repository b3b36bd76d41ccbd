#include "shell/widgets/CommLogWindow.h"

#include "common/FileChooser.h"
#include "common/MessageTable.h"
#include "common/widgets/CaptionLoader.h"
#include "common/widgets/Twips.h"
#include "link/CommLog.h"
#include "link/Prompter.h"

#include <QAction>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

// Message ids of the window's texts.
enum Text {
    Title = 5541,
    PauseCaption = 5546,
    ResumeCaption,
    ClearCaption,
    CopyCaption,
    SaveCaption,
    SaveTitle,
    FileFilter,
    ProposedName,
    NotSaved,
    RowCount,
    HeldBack,
};
const QString Extension = QStringLiteral("txt");

// Widest text a column is sized for at the start: ms of a long session, a
// parameter block write, a meaning of average length.
const char* const ColumnSamples[CommLog::ColumnCount] = {"99999999", ">", "0WD00000000000000000000000000000000000", ""};
constexpr int MeaningChars = 40;

} // namespace

CommLogWindow::CommLogWindow(Link& link, const ErrorList& errors, Prompter& prompter,
                             FileChooser& files, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_prompter(prompter)
    , m_files(files)
{
    setObjectName(QStringLiteral("frmCommLog"));
    setAttribute(Qt::WA_DeleteOnClose);
    CaptionLoader::setTag(this, Title);
    log = new CommLog(link, errors, this);

    lstCommLog = new QTreeView(this);
    lstCommLog->setObjectName(QStringLiteral("lstCommLog"));
    lstCommLog->setModel(log);
    lstCommLog->setRootIsDecorated(false);
    lstCommLog->setUniformRowHeights(true);
    lstCommLog->setAllColumnsShowFocus(true);
    lstCommLog->setSelectionMode(QAbstractItemView::ExtendedSelection);
    lstCommLog->setSelectionBehavior(QAbstractItemView::SelectRows);
    // Frames line up in a fixed font; the captions keep the window's.
    lstCommLog->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lstCommLog->header()->setFont(font());
    sizeColumns();

    auto* v = new QVBoxLayout(this);
    v->addWidget(lstCommLog, 1);
    v->addWidget(buildButtons());
    CaptionLoader::apply(this);

    auto* copy = new QAction(this);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(copy);
    connect(copy, &QAction::triggered, this, &CommLogWindow::cmdCopy_Click);
    connect(log, &QAbstractItemModel::rowsAboutToBeInserted, this,
            [this] { m_atEnd = lstCommLog->verticalScrollBar()->value() == lstCommLog->verticalScrollBar()->maximum(); });
    connect(log, &QAbstractItemModel::rowsInserted, this, &CommLogWindow::followTheEnd);
    connect(log, &CommLog::countsChanged, this, &CommLogWindow::showCounts);
    showCounts();
    resize(lstCommLog->header()->length() + 40, 420);
}

QWidget* CommLogWindow::buildButtons()
{
    auto* row = new QWidget(this);
    auto* h = new QHBoxLayout(row);
    h->setContentsMargins(0, 0, 0, 0);
    struct Button {
        QPushButton*& widget;
        const char* name;
        Text caption;
    };
    for (const Button& b : {Button{cmdPause, "cmdPause", PauseCaption}, Button{cmdClear, "cmdClear", ClearCaption},
                            Button{cmdCopy, "cmdCopy", CopyCaption}, Button{cmdSave, "cmdSave", SaveCaption}}) {
        b.widget = new QPushButton(row);
        b.widget->setObjectName(QString::fromLatin1(b.name));
        CaptionLoader::setTag(b.widget, b.caption);
        h->addWidget(b.widget);
    }
    cmdPause->setCheckable(true);
    lblCounts = new QLabel(row);
    lblCounts->setObjectName(QStringLiteral("lblCounts"));
    h->addWidget(lblCounts, 1);
    connect(cmdPause, &QPushButton::toggled, this, &CommLogWindow::cmdPause_Click);
    connect(cmdClear, &QPushButton::clicked, log, &CommLog::clear);
    connect(cmdCopy, &QPushButton::clicked, this, &CommLogWindow::cmdCopy_Click);
    connect(cmdSave, &QPushButton::clicked, this, &CommLogWindow::cmdSave_Click);
    return row;
}

// Fixed once: sizing to the contents would measure every row of each batch.
void CommLogWindow::sizeColumns()
{
    QHeaderView* header = lstCommLog->header();
    header->setStretchLastSection(true);
    const QFontMetrics rows(lstCommLog->font());
    const QFontMetrics captions(header->font());
    const int padding = 4 * rows.averageCharWidth();
    for (int c = 0; c < CommLog::ColumnCount; ++c) {
        const QString caption = log->headerData(c, Qt::Horizontal).toString();
        const int sample = c == CommLog::Meaning ? rows.averageCharWidth() * MeaningChars
                                                 : rows.horizontalAdvance(QString::fromLatin1(ColumnSamples[c]));
        header->resizeSection(c, qMax(sample, captions.horizontalAdvance(caption)) + padding);
    }
}

void CommLogWindow::placeBeside(const QWidget& main)
{
    const QRect frame = main.frameGeometry();
    const QRect room = main.screen() ? main.screen()->availableGeometry() : QRect();
    for (const QPoint& place : {frame.topRight() + QPoint(1, 0), frame.bottomLeft() + QPoint(0, 1)}) {
        if (room.contains(QRect(place, frameSize()))) {
            move(place);
            return;
        }
    }
    move(frame.topLeft() + QPoint(Twips::toPixels(500), Twips::toPixels(500)));
}

// A view scrolled to its end stays there; one scrolled back is left alone.
void CommLogWindow::followTheEnd()
{
    if (m_atEnd)
        lstCommLog->scrollToBottom();
}

void CommLogWindow::showCounts()
{
    lblCounts->setText(log->paused() ? Msg(HeldBack).arg(log->rowCount()).arg(log->heldBack())
                                     : Msg(RowCount).arg(log->rowCount()));
}

void CommLogWindow::cmdPause_Click(bool paused)
{
    cmdPause->setText(Msg(paused ? ResumeCaption : PauseCaption));
    log->setPaused(paused);
}

void CommLogWindow::cmdCopy_Click()
{
    QList<int> rows;
    for (const QModelIndex& index : lstCommLog->selectionModel()->selectedRows())
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    if (!rows.isEmpty())
        QGuiApplication::clipboard()->setText(log->lines(rows));
}

void CommLogWindow::cmdSave_Click()
{
    log->showHeld();
    const QString path = m_files.saveFile(Msg(SaveTitle), Msg(FileFilter), Extension, Msg(ProposedName));
    if (path.isEmpty())
        return;
    QString error;
    if (!log->save(path, &error))
        m_prompter.tell(Msg(NotSaved) + QStringLiteral("\r\n") + path + QStringLiteral("\r\n") + error,
                        Prompter::Icon::Exclamation);
}
