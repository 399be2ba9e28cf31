// The main window's side of the tool windows: opening them, the sample-rate chooser, and what
// the tools write into the main window.
#include <QLabel>
#include <QLineEdit>

#include "app/forms.h"
#include "app/program_folder.h"
#include "app/tool_check.h"
#include "app/window_placement.h"
#include "base/platform_names.h"
#include "main/form1.h"
#include "widgets/label_looks.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

namespace quillet {

namespace {

// What the sample-rate items store, by index.
constexpr std::array<const char*, 2> kSampleRates = {"44100", "48000"};

// Loads a window if need be and brings it up; a window not yet on screen first goes beside the
// main window.
void showBesideMainWindow(Forms& forms, FormId id) {
    QWidget& window = forms.load(id);
    if (!window.isVisible()) placeBesideMainWindow(forms, window);
    window.show();
    window.raise();
    window.activateWindow();
}

}  // namespace

void Form1::openTool(FormId tool) {
    checkToolPresence(programFolderPath(), kThisPlatform, forms_.dialogs());
    if (forms_.canLoad(tool)) showBesideMainWindow(forms_, tool);
    // No method stays chosen while a tool works: the user chooses again afterwards.
    for (XpSlider* slider : {c_.xpSlider2, c_.xpSlider4, c_.xpSlider5, c_.xpSlider6, c_.xpSlider7,
                             c_.xpSlider8, c_.xpSlider9, c_.xpSlider10}) {
        slider->setEnabled(false);
    }
    clearMethodSelection();
}

void Form1::openMetadataEditor() {
    showBesideMainWindow(forms_, FormId::Form2);
}

void Form1::Option1_Click(int index) {
    // The chooser offers every rate; it comes up beside the two offered here.
    const QWidget* chooser = forms_.loaded(FormId::Form9);
    if (!chooser || !chooser->isVisible()) showBesideMainWindow(forms_, FormId::Form9);
    const std::string rate = kSampleRates.at(static_cast<std::size_t>(index));
    forms_.state().SampleRate = rate;
    flashStatus(StatusCell::SampleRate, QString::fromStdString(rate + "Hz"), Timer6);
}

void Form1::Timer9_Timer() {
    // Once a tool runs, the splash window has no more business on screen.
    if (!forms_.state().ToolBusy) return;
    forms_.unload(FormId::Form4);
    Timer9.stop();
}

void Form1::showStatusText(StatusCell cell, const std::string& text) {
    c_.status(cell)->setText(QString::fromStdString(text));
}

void Form1::showToolSourceSize(const std::string& sizeText) {
    c_.Text6->setText("0,000");
    c_.Text7->setText("0,000");
    c_.Label2->setText("Target Size - 60% of Original Video Size");
    showStatusText(StatusCell::SourceSize, "Init Size: " + sizeText + "Mb");
}

void Form1::showRunningTime(const std::string& clock) {
    c_.Text1->setText(QString::fromStdString(clock));
}

void Form1::markStatusCell(StatusCell cell) {
    showHighlighted(c_.status(cell), true);
}

std::optional<int> Form1::selectedSampleRateItem() const {
    for (int item = 0; item < c_.Option1->count(); ++item) {
        if (c_.Option1->isSelected(item)) return item;
    }
    return std::nullopt;
}

void Form1::selectSampleRateItem(std::optional<int> item) {
    c_.Option1->clearSelection();
    if (item) c_.Option1->select(*item);
}

}  // namespace quillet
