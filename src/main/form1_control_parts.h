#pragma once

#include <QString>

class QFrame;
class QGridLayout;
class QLabel;
class QLineEdit;
class QWidget;

namespace quillet {

class XpSlider;

// The pieces the main window's controls are built from.

QLabel* makeLabel(const QString& text, QWidget* parent, const QString& name = {});

// A value label beside a slider, wide enough for its longest text so the layout never jumps.
QLabel* makeValueLabel(const QString& text, const QString& name, const QString& widest,
                       QWidget* parent);

// The information boxes show what the program worked out; the user does not type into them.
QLineEdit* makeBox(const QString& text, const QString& name, QWidget* parent);

// A framed group with its caption on top and a grid for its controls.
struct Panel {
    QFrame* frame;
    QLabel* caption;
    QGridLayout* grid;
};
Panel makePanel(const QString& caption, QWidget* parent);

// One slider with its value label and, where it has one, its unit label, on a grid row.
void addSliderRow(QGridLayout* grid, int row, int column, XpSlider* slider, QLabel* value,
                  QLabel* unit = nullptr);

}  // namespace quillet
