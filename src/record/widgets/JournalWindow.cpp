#include "record/widgets/JournalWindow.h"

#include "common/MessageTable.h"
#include "record/JournalQuery.h"
#include "record/widgets/JournalTableModel.h"

#include <QDateEdit>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

namespace {

enum Text {
    Title = 5622,
    FilterCaption,
    FromCaption,
    ToCaption,
    FramesCaption,
    FilterHint = 5628,
    Count,
};

const QString DateFormat = QStringLiteral("yyyy-MM-dd");

QDateEdit* dateEdit(QWidget* parent, const char* name)
{
    auto* edit = new QDateEdit(parent);
    edit->setObjectName(QString::fromLatin1(name));
    edit->setCalendarPopup(true);
    edit->setDisplayFormat(DateFormat);
    return edit;
}

QLabel* caption(QWidget* parent, int message, QWidget* buddy)
{
    auto* label = new QLabel(Msg(message), parent);
    label->setBuddy(buddy);
    return label;
}

} // namespace

JournalWindow::JournalWindow(QString directory, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , m_directory(std::move(directory))
{
    setObjectName(QStringLiteral("frmJournal"));
    setWindowTitle(Msg(Title));
    model = new JournalTableModel(this);
    tblJournal = new QTableView(this);
    tblJournal->setObjectName(QStringLiteral("tblJournal"));
    tblJournal->setModel(model);
    tblJournal->setSelectionBehavior(QAbstractItemView::SelectRows);
    tblJournal->setSelectionMode(QAbstractItemView::SingleSelection);
    tblJournal->verticalHeader()->hide();
    tblJournal->horizontalHeader()->setStretchLastSection(true);
    txtFrames = new QPlainTextEdit(this);
    txtFrames->setObjectName(QStringLiteral("txtFrames"));
    txtFrames->setReadOnly(true);
    txtFrames->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));

    auto* below = new QWidget(this);
    auto* framesLayout = new QVBoxLayout(below);
    framesLayout->setContentsMargins(0, 0, 0, 0);
    framesLayout->addWidget(caption(below, FramesCaption, txtFrames));
    framesLayout->addWidget(txtFrames);
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(tblJournal);
    splitter->addWidget(below);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(buildFilterRow());
    layout->addWidget(splitter, 1);
    connect(tblJournal->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &JournalWindow::showSelected);
    connect(model, &QAbstractItemModel::modelReset, this, &JournalWindow::showSelected);
    resize(960, 560);
    reload();
}

QWidget* JournalWindow::buildFilterRow()
{
    auto* row = new QWidget(this);
    txtFilter = new QLineEdit(row);
    txtFilter->setObjectName(QStringLiteral("txtFilter"));
    txtFilter->setPlaceholderText(Msg(FilterHint));
    txtFilter->setClearButtonEnabled(true);
    dtpFrom = dateEdit(row, "dtpFrom");
    dtpTo = dateEdit(row, "dtpTo");
    lblCount = new QLabel(row);
    lblCount->setObjectName(QStringLiteral("lblCount"));
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(caption(row, FilterCaption, txtFilter));
    layout->addWidget(txtFilter, 1);
    layout->addWidget(caption(row, FromCaption, dtpFrom));
    layout->addWidget(dtpFrom);
    layout->addWidget(caption(row, ToCaption, dtpTo));
    layout->addWidget(dtpTo);
    layout->addWidget(lblCount);
    connect(txtFilter, &QLineEdit::textChanged, this, &JournalWindow::filterChanged);
    connect(dtpFrom, &QDateEdit::dateChanged, this, &JournalWindow::filterChanged);
    connect(dtpTo, &QDateEdit::dateChanged, this, &JournalWindow::filterChanged);
    return row;
}

// The days offered run from the oldest entry to today (or the newest).
void JournalWindow::reload()
{
    QList<JournalEntry> entries = JournalListing::read(m_directory, {}).entries;
    const QDate today = QDate::currentDate();
    const QDate oldest = entries.isEmpty() ? today : std::min(entries.first().time.date(), today);
    const QDate newest = entries.isEmpty() ? today : std::max(entries.last().time.date(), today);
    const QSignalBlocker fromQuiet(dtpFrom);
    const QSignalBlocker toQuiet(dtpTo);
    dtpFrom->setDate(oldest);
    dtpTo->setDate(newest);
    model->setEntries(std::move(entries));
    filterChanged();
    tblJournal->resizeColumnsToContents();
}

void JournalWindow::filterChanged()
{
    model->setFilter(txtFilter->text(), dtpFrom->date(), dtpTo->date());
    lblCount->setText(Msg(Count).arg(model->rowCount()).arg(model->total()));
}

void JournalWindow::showSelected()
{
    const JournalEntry* entry = model->entryAt(tblJournal->currentIndex().row());
    if (!entry) {
        txtFrames->clear();
        return;
    }
    QStringList lines;
    if (!entry->message.isEmpty())
        lines << entry->message << QString();
    lines << entry->frames;
    txtFrames->setPlainText(lines.join(u'\n'));
}
