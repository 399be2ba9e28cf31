#include "main/speed_cell_row.h"

#include <QHBoxLayout>
#include <QLabel>

#include "widgets/label_looks.h"

namespace quillet {

namespace {

constexpr std::array<const char*, kSpeedCellCount> kCaptions = {" 1x", "2x", "3x", "4x",   "5x",
                                                                "6x",  "7x", "8x", "> 8x", "< 1x"};

}  // namespace

SpeedCellRow::SpeedCellRow(QWidget* parent) : QWidget(parent) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);
    for (int index = 0; index < kSpeedCellCount; ++index) {
        auto* cell = new QLabel(kCaptions[static_cast<std::size_t>(index)], this);
        cell->setObjectName(QString("Label8(%1)").arg(index));
        cell->setAlignment(Qt::AlignCenter);
        cell->setFrameShape(QFrame::Panel);
        cell->setFrameShadow(QFrame::Sunken);
        cell->setMinimumHeight(26);
        cell->setAutoFillBackground(true);
        QPalette palette = cell->palette();
        palette.setColor(QPalette::Window, kCellGround);
        cell->setPalette(palette);
        layout->addWidget(cell, 1);
        cells_[static_cast<std::size_t>(index)] = cell;
    }
}

QLabel* SpeedCellRow::cell(int index) const {
    return cells_.at(static_cast<std::size_t>(index));
}

bool SpeedCellRow::isLit(int index) const {
    return cell(index)->palette().color(QPalette::WindowText) == kHighlightText;
}

void SpeedCellRow::apply(const SpeedCellLooks& looks) {
    for (int index = 0; index < kSpeedCellCount; ++index) {
        if (const auto& look = looks[static_cast<std::size_t>(index)]) setLit(index, *look);
    }
}

void SpeedCellRow::showAllNormal() {
    for (int index = 0; index < kSpeedCellCount; ++index) setLit(index, false);
}

void SpeedCellRow::setLit(int index, bool lit) {
    QLabel* label = cell(index);
    showHighlighted(label, lit);
    // The two text colours are close; a lit cell is also drawn bold so that the speed reads at a
    // glance.
    QFont font = label->font();
    font.setBold(lit);
    label->setFont(font);
}

}  // namespace quillet
