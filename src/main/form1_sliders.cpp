#include <array>

#include "main/compression_settings.h"
#include "main/form1.h"
#include "main/form1_texts.h"
#include "main/slider_tables.h"
#include "main/target_size.h"
#include "widgets/label_looks.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

// The main window's method items and sliders: each change shows its value and keeps it.

namespace quillet {

namespace {

// Status-strip captions of the method items, by index.
constexpr std::array<const char*, 4> kMethodCaptions = {"Method: Target Size", "Method: CRF",
                                                        "Method: ABR", "Method: QP"};

}  // namespace

void Form1::xpOption1_Click(int index) {
    for (XpSlider* slider : {c_.xpSlider2, c_.xpSlider4, c_.xpSlider5, c_.xpSlider6, c_.xpSlider7,
                             c_.xpSlider8, c_.xpSlider9, c_.xpSlider10}) {
        slider->setEnabled(false);
    }
    switch (index) {
        case 0:
            c_.xpSlider4->setEnabled(true);
            break;
        case 1:
            c_.xpSlider2->setEnabled(true);
            break;
        case 2:
            for (XpSlider* slider : {c_.xpSlider5, c_.xpSlider7, c_.xpSlider8, c_.xpSlider10}) {
                slider->setEnabled(true);
            }
            break;
        case 3:
            c_.xpSlider6->setEnabled(true);
            c_.xpSlider9->setEnabled(true);
            break;
        default:
            return;
    }
    c_.xpSlider1->setEnabled(true);
    c_.xpSlider3->setEnabled(true);
    flashStatus(StatusCell::Method, kMethodCaptions[static_cast<std::size_t>(index)], Timer5);
}

void Form1::xpSlider1_ValueChanged() {
    const std::string name = presetName(c_.xpSlider1->value());
    showText(c_.Label9, name);
    forms_.state().PresetName = name;
    flashValues({c_.Label9});
}

void Form1::xpSlider2_ValueChanged() {
    c_.Label12->setNum(c_.xpSlider2->value());
    flashValues({c_.Label12});
}

void Form1::xpSlider3_ValueChanged() {
    showText(c_.Label14, audioBitRateText(c_.xpSlider3->value()));
    c_.Label16->setText("k");
    flashValues({c_.Label14});
    // The video gets what the audio leaves of the target size.
    xpSlider4_ValueChanged();
}

void Form1::xpSlider4_ValueChanged() {
    const TargetSizeChange change =
        targetSizeMoved(c_.xpSlider4->value(), textOf(c_.Text6), textOf(c_.Text8),
                        textOf(c_.Label14), shownLocale());
    if (change.targetText) {
        c_.Text7->setText(QString::fromStdString(*change.targetText));
        flashValues({c_.Text7});
    }
    if (change.shareText) showText(c_.Label2, *change.shareText);
    if (change.bitRate) {
        forms_.state().VideoBitRate = *change.bitRate;
        c_.Text10->setText(QString::fromStdString(*change.bitRate));
        flashValues({c_.Text10});
    }
}

void Form1::xpSlider5_ValueChanged() {
    const SliderLabel label = abrLabel(c_.xpSlider5->value(), shownLocale());
    showSliderLabel(label, c_.Label30, c_.Label31);
    forms_.state().ABRUnit = label.unit;
    forms_.state().ABRBitRate = label.value;
}

void Form1::xpSlider6_ValueChanged() {
    c_.Label33->setNum(c_.xpSlider6->value());
    forms_.state().QPValue = std::to_string(c_.xpSlider6->value());
    flashValues({c_.Label33});
}

void Form1::xpSlider7_ValueChanged() {
    showSliderLabel(minBitRateLabel(c_.xpSlider7->value(), shownLocale()), c_.Label35, c_.Label39);
}

void Form1::xpSlider8_ValueChanged() {
    showSliderLabel(bufferSizeLabel(c_.xpSlider8->value(), shownLocale()), c_.Label45, c_.Label46);
}

void Form1::xpSlider9_ValueChanged() {
    c_.Label42->setNum(c_.xpSlider9->value());
    forms_.state().QPLookAhead = std::to_string(c_.xpSlider9->value());
    flashValues({c_.Label42});
}

void Form1::xpSlider10_ValueChanged() {
    showSliderLabel(maxBitRateLabel(c_.xpSlider10->value(), shownLocale()), c_.Label36, c_.Label40);
}

void Form1::Text6_Change() {
    showHighlighted(c_.Text6, true);
    Timer8.start();
    const SourceSizeChange change = sourceSizeChanged(textOf(c_.Text6), shownLocale());
    if (change.sliderMaximum) c_.xpSlider4->setMaximum(*change.sliderMaximum);
    if (change.sliderPosition) {
        // A new source always shows its target, also when the slider already stands there.
        if (c_.xpSlider4->value() == *change.sliderPosition) {
            xpSlider4_ValueChanged();
        } else {
            c_.xpSlider4->setValue(*change.sliderPosition);
        }
    }
    flashStatus(StatusCell::SourceSize, QString::fromStdString(change.statusText), Timer4);
}

void Form1::Text8_Change() {
    showHighlighted(c_.Text8, true);
    Timer8.start();
    xpSlider4_ValueChanged();
}

void Form1::showSliderLabel(const SliderLabel& label, QLabel* value, QLabel* unit) {
    showText(value, label.value);
    showText(unit, label.unit);
    flashValues({value, unit});
}

void Form1::flashValues(std::initializer_list<QWidget*> widgets) {
    for (QWidget* widget : widgets) showHighlighted(widget, true);
    Timer10.start();
}

void Form1::flashStatus(StatusCell cell, const QString& text, QTimer& restore) {
    QLabel* label = c_.status(cell);
    label->setText(text);
    showHighlighted(label, true);
    restore.start();
}

}  // namespace quillet
