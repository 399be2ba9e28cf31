#include "widgets/option_array.h"

#include <QRadioButton>

namespace quillet {

OptionArray::OptionArray(const QString& name, const QStringList& captions, QWidget* parent)
    : QObject(parent) {
    for (int index = 0; index < captions.size(); ++index) {
        auto* item = new QRadioButton(captions[index], parent);
        item->setObjectName(QString("%1(%2)").arg(name).arg(index));
        group_.addButton(item, index);
    }
    connect(&group_, &QButtonGroup::idClicked, this, &OptionArray::Click);
}

int OptionArray::count() const {
    return static_cast<int>(group_.buttons().size());
}

QRadioButton* OptionArray::item(int index) const {
    return static_cast<QRadioButton*>(group_.button(index));
}

bool OptionArray::isSelected(int index) const {
    const QAbstractButton* button = group_.button(index);
    return button && button->isChecked();
}

void OptionArray::select(int index) {
    if (QAbstractButton* button = group_.button(index)) button->setChecked(true);
}

void OptionArray::deselect(int index) {
    QAbstractButton* button = group_.button(index);
    if (!button || !button->isChecked()) return;
    // An exclusive group refuses to deselect its one selected item; it is exclusive again at once.
    group_.setExclusive(false);
    button->setChecked(false);
    group_.setExclusive(true);
}

void OptionArray::clearSelection() {
    for (int index = 0; index < count(); ++index) deselect(index);
}

void OptionArray::setItemsEnabled(bool enabled) {
    for (QAbstractButton* button : group_.buttons()) button->setEnabled(enabled);
}

}  // namespace quillet
