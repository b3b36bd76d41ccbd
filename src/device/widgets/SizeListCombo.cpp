#include "device/widgets/SizeListCombo.h"

#include <QComboBox>

namespace SizeListCombo {

void show(const SizeListBox& box, QComboBox* combo)
{
    combo->clear();
    for (int i = 0; i < box.count(); ++i)
        combo->addItem(box.itemText(i), box.itemData(i));
    setText(combo, box.text());
}

void setText(QComboBox* combo, const QString& text)
{
    combo->setCurrentIndex(combo->findText(text, Qt::MatchFixedString | Qt::MatchCaseSensitive));
    if (combo->isEditable() && combo->currentText() != text)
        combo->setEditText(text);
}

SizeListBox read(const QComboBox* combo)
{
    SizeListBox box(!combo->isEditable());
    for (int i = 0; i < combo->count(); ++i)
        box.addItem(combo->itemText(i), combo->itemData(i).toInt());
    box.setText(combo->currentText());
    return box;
}

} // namespace SizeListCombo
