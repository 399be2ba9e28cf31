#pragma once

#include <QButtonGroup>
#include <QObject>
#include <QStringList>

class QRadioButton;
class QWidget;

namespace quillet {

// A group of option items, indexed from 0, of which at most one is selected: clicking an item
// selects it, deselects the others and raises Click with its index. Unlike a plain radio group,
// the program can also leave no item selected.
class OptionArray : public QObject {
    Q_OBJECT

public:
    // Items are named `name` followed by their index in brackets, e.g. "Option1(0)".
    OptionArray(const QString& name, const QStringList& captions, QWidget* parent);

    int count() const;
    QRadioButton* item(int index) const;
    bool isSelected(int index) const;

    // Selects one item without raising Click.
    void select(int index);
    void deselect(int index);
    void clearSelection();
    void setItemsEnabled(bool enabled);

signals:
    void Click(int index);

private:
    QButtonGroup group_;
};

}  // namespace quillet
