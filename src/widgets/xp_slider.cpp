#include "widgets/xp_slider.h"

#include <algorithm>

namespace quillet {

namespace {

// A click beside the handle moves a tenth of the way, and never by more than one position on the
// short scales where every position is a setting of its own (preset, audio rate).
int pageStepFor(int min, int max) {
    return std::max(1, (max - min) / 10);
}

}  // namespace

XpSlider::XpSlider(int min, int max, int value, QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(min, max);
    setValue(value);
    setSingleStep(1);
    setPageStep(pageStepFor(min, max));
    connect(this, &QSlider::rangeChanged, this,
            [this](int newMin, int newMax) { setPageStep(pageStepFor(newMin, newMax)); });
    connect(this, &QSlider::valueChanged, this, &XpSlider::ValueChanged);
}

}  // namespace quillet
