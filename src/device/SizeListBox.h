#pragma once

#include <QList>
#include <QString>

// A size list box as plain values (items with their item data, and the
// text), so the rules that fill it are tested without widgets; the window
// copies it into its combo box. A list-only box behaves like a drop-down
// list: a text that is none of its items leaves it without a selection.
class SizeListBox {
public:
    explicit SizeListBox(bool listOnly = false)
        : m_listOnly(listOnly)
    {
    }

    // Removes the items; the text of an editable box stays.
    void clearItems();
    void addItem(const QString& text, int data);
    int count() const { return int(m_items.size()); }
    QString itemText(int i) const { return m_items.at(i).text; }
    int itemData(int i) const { return m_items.at(i).data; }

    QString text() const { return m_text; }
    void setText(const QString& text);

private:
    struct Item {
        QString text;
        int data;
    };
    QList<Item> m_items;
    QString m_text;
    bool m_listOnly;
};

// The four actuator sizes every size list offers, in this order, with item
// data 0 to 3.
void AddFixedSizes(SizeListBox& box);
