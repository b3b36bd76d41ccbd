#pragma once

#include <QWidget>

class JournalTableModel;
class QDateEdit;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QTableView;

// The journal window (View, Journal): the entries of the journal folder in
// a table, filtered by a text over unit, port and action and by a range of
// days, and under it what the selected entry's user was told and its frames.
// It reads the journal when opened and again when shown anew.
class JournalWindow : public QWidget {
    Q_OBJECT
public:
    JournalWindow(QString directory, QWidget* parent);

    void reload();

    JournalTableModel* model;
    QLineEdit* txtFilter;
    QDateEdit* dtpFrom;
    QDateEdit* dtpTo;
    QLabel* lblCount;
    QTableView* tblJournal;
    QPlainTextEdit* txtFrames;

private:
    QWidget* buildFilterRow();
    void filterChanged();
    void showSelected();

    QString m_directory;
};
