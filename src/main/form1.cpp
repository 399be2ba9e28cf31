#include "main/form1.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTime>

#include "app/form3.h"
#include "app/program_end.h"
#include "app/qt_format_locale.h"
#include "app/settings_store.h"
#include "app/twips.h"
#include "base/default_settings.h"
#include "main/compression_settings.h"
#include "main/form1_texts.h"
#include "main/hover_effects.h"
#include "main/speed_cell_row.h"
#include "main/system_menu.h"
#include "widgets/label_looks.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

namespace quillet {

namespace {

constexpr int kOuterWidthTwips = 8870;
constexpr int kOuterHeightTwips = 12510;

}  // namespace

Form1::Form1(Forms& forms) : QMainWindow(nullptr), forms_(forms) {
    setObjectName("Form1");
    setWindowTitle("Quillet (Version 2.0)");
    // No maximise button and no resizing frame: the window keeps the size start-up gives it.
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint |
                   Qt::MSWindowsFixedSizeDialogHint);
    QPalette colours = palette();
    for (QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        colours.setColor(group, QPalette::WindowText, kNormalText);
        colours.setColor(group, QPalette::Text, kNormalText);
    }
    setPalette(colours);

    auto* surface = new QWidget(this);
    surface->setObjectName("surface");
    setCentralWidget(surface);
    c_ = buildForm1Controls(surface);
    // A method needs a source video: the items become available once one is chosen.
    c_.xpOption1->setItemsEnabled(false);

    setUpTimers();
    connectHandlers();
    buildMenus();
    auto* hover = new HoverEffects(surface);
    hover->watch(c_.Label21, Timer2, true);
    for (QLabel* label : c_.hoverCaptions) hover->watch(label, Timer7);
    for (QLabel* label : c_.valueLabels) hover->watch(label, Timer7);
}

void Form1::Form_Load() {
    for (QTimer* timer : {&Timer1, &Timer2, &Timer3, &Timer5, &Timer7, &Timer10, &Timer11}) {
        timer->stop();
    }
    Timer9.start();
    forms_.state().PresetName = defaults::kStartup.preset;
    // The monitor takes its first reading as it loads; a stored "off" then shows zero at once.
    forms_.load(FormId::Form3);
    applyStoredCpuSwitch();
}

void Form1::setOuterSize(QSize outer) {
    // The frame is known only once the window is on screen; before that it counts as zero.
    const QSize frame = frameGeometry().size() - geometry().size();
    setFixedSize(outer - frame);
}

void Form1::prepareAtStartup() {
    setOuterSize({twipsToPixels(kOuterWidthTwips), twipsToPixels(kOuterHeightTwips)});
    // The target size stays chosen; the other methods show unselected.
    for (int index = 1; index < c_.xpOption1->count(); ++index) c_.xpOption1->deselect(index);
    for (XpSlider* slider : {c_.xpSlider2, c_.xpSlider3, c_.xpSlider4, c_.xpSlider5, c_.xpSlider6,
                             c_.xpSlider7, c_.xpSlider8, c_.xpSlider9, c_.xpSlider10}) {
        slider->setEnabled(false);
    }
}

void Form1::showCpuText(const std::string& text) {
    c_.status(StatusCell::Cpu)->setText(QString::fromStdString(text));
}

void Form1::enableMethodItems() {
    c_.xpOption1->setItemsEnabled(true);
}

void Form1::clearMethodSelection() {
    c_.xpOption1->clearSelection();
}

void Form1::CompressionVars() {
    ProgramState& state = forms_.state();
    c_.Text3->setText(QString::fromStdString(formatTime12Hour(timeOfDay(QTime::currentTime()))));
    showHighlighted(c_.Text3, true);
    Timer8.start();

    ShownSettings shown;
    for (int index = 0; index < c_.xpOption1->count(); ++index) {
        shown.methodSelected[static_cast<std::size_t>(index)] = c_.xpOption1->isSelected(index);
    }
    shown.targetSize = textOf(c_.Text7);
    shown.videoSeconds = textOf(c_.Text8);
    shown.videoBitRate = textOf(c_.Text10);
    shown.crf = textOf(c_.Label12);
    shown.abrValue = textOf(c_.Label30);
    shown.minRateValue = textOf(c_.Label35);
    shown.minRateUnit = textOf(c_.Label39);
    shown.maxRateValue = textOf(c_.Label36);
    shown.maxRateUnit = textOf(c_.Label40);
    shown.bufferValue = textOf(c_.Label45);
    shown.bufferUnit = textOf(c_.Label46);
    shown.qp = textOf(c_.Label33);
    shown.audioBitRate = textOf(c_.Label14);
    shown.preset = textOf(c_.Label9);
    copyShownSettings(shown, state, shownLocale());
    startJobWindow(state.CompressionMethod);
}

void Form1::CompressionSpeedDisplay(int ProcSpeed) {
    c_.Label8->apply(speedDisplay(ProcSpeed));
}

void Form1::ZeroSpeed() {
    c_.Label8->showAllNormal();
}

void Form1::setSpeedDisplayRunning(bool running) {
    if (running) {
        Timer1.start();
    } else {
        Timer1.stop();
    }
}

void Form1::closeEvent(QCloseEvent* event) {
    event->ignore();
    Form_QueryUnload();
}

void Form1::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!systemMenuTrimmed_) {
        removeSizeAndMaximizeFromSystemMenu(*this);
        systemMenuTrimmed_ = true;
    }
}

void Form1::Form_QueryUnload() {
    saveCpuMonitorSwitch(forms_.state().CpuMonitorEnabled);
    endProgram(forms_);
}

void Form1::connectHandlers() {
    connect(c_.xpOption1, &OptionArray::Click, this, &Form1::xpOption1_Click);
    connect(c_.Option1, &OptionArray::Click, this, &Form1::Option1_Click);
    const std::array<std::pair<XpSlider*, void (Form1::*)()>, 10> sliders = {{
        {c_.xpSlider1, &Form1::xpSlider1_ValueChanged},
        {c_.xpSlider2, &Form1::xpSlider2_ValueChanged},
        {c_.xpSlider3, &Form1::xpSlider3_ValueChanged},
        {c_.xpSlider4, &Form1::xpSlider4_ValueChanged},
        {c_.xpSlider5, &Form1::xpSlider5_ValueChanged},
        {c_.xpSlider6, &Form1::xpSlider6_ValueChanged},
        {c_.xpSlider7, &Form1::xpSlider7_ValueChanged},
        {c_.xpSlider8, &Form1::xpSlider8_ValueChanged},
        {c_.xpSlider9, &Form1::xpSlider9_ValueChanged},
        {c_.xpSlider10, &Form1::xpSlider10_ValueChanged},
    }};
    for (const auto& [slider, handler] : sliders) {
        connect(slider, &XpSlider::ValueChanged, this, handler);
    }
    // Whoever writes the source size or running time, the target-size arithmetic follows.
    connect(c_.Text6, &QLineEdit::textChanged, this, &Form1::Text6_Change);
    connect(c_.Text8, &QLineEdit::textChanged, this, &Form1::Text8_Change);
    connectSourceLabel();
}

void Form1::setUpTimers() {
    // A one-shot timer puts the normal colour back on what it looks after, then stops.
    const auto restores = [this](QTimer& timer, int interval, std::vector<QWidget*> widgets) {
        timer.setInterval(interval);
        timer.setSingleShot(true);
        connect(&timer, &QTimer::timeout, this, [widgets] {
            for (QWidget* widget : widgets) showHighlighted(widget, false);
        });
    };
    const std::vector<QWidget*> statusCells(c_.Label26.begin(), c_.Label26.end());
    std::vector<QWidget*> values(c_.valueLabels.begin(), c_.valueLabels.end());
    values.insert(values.end(), {c_.Text7, c_.Text10});

    Timer1.setInterval(100);
    connect(&Timer1, &QTimer::timeout, this, &Form1::Timer1_Timer);
    Timer2.setInterval(500);
    Timer2.setSingleShot(true);
    Timer3.setInterval(250);
    connect(&Timer3, &QTimer::timeout, this, &Form1::Timer3_Timer);
    restores(Timer4, 500, statusCells);
    restores(Timer5, 500, {c_.status(StatusCell::Method)});
    restores(Timer6, 500, {c_.status(StatusCell::SampleRate)});
    Timer7.setInterval(800);
    Timer7.setSingleShot(true);
    restores(Timer8, 350, {c_.Text1, c_.Text3, c_.Text6, c_.Text8, c_.Label3});
    Timer9.setInterval(250);
    connect(&Timer9, &QTimer::timeout, this, &Form1::Timer9_Timer);
    restores(Timer10, 250, values);
    Timer11.setInterval(1000);
    connect(&Timer11, &QTimer::timeout, this, &Form1::Timer11_Timer);
    restores(Timer13, 250, statusCells);
}

void Form1::Timer1_Timer() {
    if (const auto looks = speedTimerTick(forms_.state().SpeedLevel, lastSpeedShown_)) {
        c_.Label8->apply(*looks);
    }
}

}  // namespace quillet
