#include "main/form1_control_parts.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "widgets/xp_slider.h"

namespace quillet {

QLabel* makeLabel(const QString& text, QWidget* parent, const QString& name) {
    auto* label = new QLabel(text, parent);
    if (!name.isEmpty()) label->setObjectName(name);
    return label;
}

QLabel* makeValueLabel(const QString& text, const QString& name, const QString& widest,
                       QWidget* parent) {
    QLabel* label = makeLabel(text, parent, name);
    label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest) + 4);
    return label;
}

QLineEdit* makeBox(const QString& text, const QString& name, QWidget* parent) {
    auto* box = new QLineEdit(text, parent);
    box->setObjectName(name);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::NoFocus);
    box->setAlignment(Qt::AlignRight);
    return box;
}

Panel makePanel(const QString& caption, QWidget* parent) {
    auto* frame = new QFrame(parent);
    frame->setFrameShape(QFrame::StyledPanel);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(10, 6, 10, 8);
    layout->setSpacing(4);
    QLabel* title = makeLabel(caption, frame);
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    layout->addWidget(title);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(4);
    layout->addLayout(grid);
    return {frame, title, grid};
}

void addSliderRow(QGridLayout* grid, int row, int column, XpSlider* slider, QLabel* value,
                  QLabel* unit) {
    grid->addWidget(slider, row, column);
    grid->addWidget(value, row, column + 1);
    if (unit) grid->addWidget(unit, row, column + 2);
}

}  // namespace quillet
