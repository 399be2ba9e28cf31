#pragma once

#include <QSlider>

namespace quillet {

// A horizontal slider of the main window: Min, Max and Value are QSlider's range and value,
// Enabled its enabled state, and ValueChanged is raised whenever the value changes, by the user or
// by the program (so that setting a new range or position runs the slider's handler).
class XpSlider : public QSlider {
    Q_OBJECT

public:
    // The initial range and position are set before anything can listen, so they raise nothing.
    XpSlider(int min, int max, int value, QWidget* parent = nullptr);

signals:
    void ValueChanged(int value);
};

}  // namespace quillet
