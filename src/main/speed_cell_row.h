#pragma once

#include <QWidget>
#include <array>

#include "main/speed_cells.h"

class QLabel;

namespace quillet {

// The row of speed cells " 1x" ... "8x", "> 8x", "< 1x" (the label array Label8): each cell is lit
// (highlight colour) or normal, on a light grey ground.
class SpeedCellRow : public QWidget {
    Q_OBJECT

public:
    explicit SpeedCellRow(QWidget* parent = nullptr);

    QLabel* cell(int index) const;
    bool isLit(int index) const;

    // Cells the looks do not mention keep their look.
    void apply(const SpeedCellLooks& looks);
    void showAllNormal();

private:
    void setLit(int index, bool lit);

    std::array<QLabel*, kSpeedCellCount> cells_{};
};

}  // namespace quillet
