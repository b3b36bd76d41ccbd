#include "device/SizeListBox.h"

#include <algorithm>

void SizeListBox::clearItems()
{
    m_items.clear();
    if (m_listOnly)
        m_text.clear();
}

void SizeListBox::addItem(const QString& text, int data)
{
    m_items.append({text, data});
}

void SizeListBox::setText(const QString& text)
{
    if (m_listOnly) {
        const bool listed = std::any_of(m_items.cbegin(), m_items.cend(),
                                        [&](const Item& item) { return item.text == text; });
        m_text = listed ? text : QString();
        return;
    }
    m_text = text;
}

void AddFixedSizes(SizeListBox& box)
{
    const QString sizes[] = {QStringLiteral("28"), QStringLiteral("35"), QStringLiteral("42"),
                             QStringLiteral("SP")};
    for (int i = 0; i < 4; ++i)
        box.addItem(sizes[i], i);
}
