// The MP3 audio tool's controls, with their captions and first values, and their layout.
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QVBoxLayout>

#include "toolwindows/form10.h"
#include "toolwindows/mp3_tool_choices.h"
#include "toolwindows/tool_controls.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

namespace quillet {

void Form10::buildControls() {
    auto* surface = new QWidget(this);
    setCentralWidget(surface);
    auto* layout = new QVBoxLayout(surface);

    layout->addWidget(
        namedLabel("Label2",
                   "This utility Re-Encodes the Audio Data within an MP4 Video,  into MP3 "
                   "Audio Data. ",
                   surface));
    layout->addWidget(namedLabel(
        "Label20", "This greatly reduces the percentage of Video Size taken-up by the audio.",
        surface));
    Label1 = namedLabel("Label1", "Video Name", surface);
    Label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(Label1);
    layout->addWidget(buildVideoChoices(surface));
    layout->addWidget(buildAudioChoices(surface));
    buildRunDisplay(surface, layout);
}

QGroupBox* Form10::buildVideoChoices(QWidget* surface) {
    auto* video = new QGroupBox(surface);
    auto* videoGrid = new QGridLayout(video);
    Label15 = namedLabel("Label15", "Constant Rate Factor (CRF)", video);
    xpSlider1 = new XpSlider(1, 50, 20, video);
    xpSlider1->setObjectName("xpSlider1");
    xpSlider1->setTickInterval(2);
    xpSlider1->setTickPosition(QSlider::TicksBelow);
    Label16 = namedLabel("Label16", "20", video);
    Label14 = namedLabel("Label14", QString::fromStdString(presetCaption("VeryFast")), video);
    Option1 = new OptionArray("Option1", captionList(kMp3PresetCaptions), video);
    Option1->select(kMp3DefaultPreset);
    videoGrid->addWidget(namedLabel("Label17", "libx265", video), 0, 0);
    videoGrid->addWidget(Label15, 0, 1, 1, 3);
    videoGrid->addWidget(xpSlider1, 1, 0, 1, 3);
    videoGrid->addWidget(Label16, 1, 3);
    videoGrid->addWidget(Label14, 2, 0, 1, 4);
    for (int index = 0; index < Option1->count(); ++index) {
        videoGrid->addWidget(Option1->item(index), 3, index);
    }
    return video;
}

QGroupBox* Form10::buildAudioChoices(QWidget* surface) {
    auto* audio = new QGroupBox(surface);
    auto* audioGrid = new QGridLayout(audio);
    Label21 = namedLabel("Label21", "Audio Quality", audio);
    xpSlider2 = new XpSlider(1, 9, 5, audio);
    xpSlider2->setObjectName("xpSlider2");
    Label5 = namedLabel("Label5", "5", audio);
    List1 = new QListWidget(audio);
    List1->setObjectName("List1");
    for (const char* item : kMp3SampleRateItems) List1->addItem(item);
    List1->setCurrentRow(kMp3DefaultSampleRateItem);
    List1->setMaximumHeight(List1->sizeHintForRow(0) * 5 + 2 * List1->frameWidth());
    Label19 = namedLabel("Label19", QString::fromStdString(sampleRateCaption("44100")), audio);
    audioGrid->addWidget(namedLabel("Label18", "libmp3lame", audio), 0, 0);
    audioGrid->addWidget(Label21, 0, 1, 1, 3);
    // The chosen qscale follows its caption, away from "Max q = 9" at the slider's end, where it
    // would read as "Max q = 9 5".
    auto* qscale = new QHBoxLayout;
    qscale->addWidget(namedLabel("Label3", "Control Audio quality with qscale ", audio));
    qscale->addWidget(Label5);
    qscale->addStretch();
    audioGrid->addLayout(qscale, 1, 0, 1, 4);
    audioGrid->addWidget(namedLabel("Label6", "Min q = 1", audio), 2, 0);
    audioGrid->addWidget(xpSlider2, 2, 1, 1, 2);
    audioGrid->addWidget(namedLabel("Label7", "Max q = 9", audio), 2, 3);
    audioGrid->addWidget(namedLabel("Label10", "Smaller Audio Data Size", audio), 3, 0, 1, 2);
    audioGrid->addWidget(namedLabel("Label9", "Large Audio Data Size", audio), 3, 2, 1, 2,
                         Qt::AlignRight);
    audioGrid->addWidget(Label19, 4, 0, 1, 2);
    audioGrid->addWidget(List1, 4, 2, 1, 2);
    audioGrid->setColumnStretch(1, 1);
    audioGrid->setColumnStretch(2, 1);
    return audio;
}

void Form10::buildRunDisplay(QWidget* surface, QVBoxLayout* layout) {
    // The run's clocks as a small table: each number under the heading of its unit, on the line of
    // its caption.
    auto* run = new QGridLayout;
    Label11 = namedLabel("Label11", "", surface);
    Label12 = namedLabel("Label12", "", surface);
    Label4 = namedLabel("Label4", "", surface);
    Label13 = namedLabel("Label13", "", surface);
    run->addWidget(namedLabel("clockHeading", "h:mm:ss", surface), 0, 1);
    run->addWidget(namedLabel("secondsHeading", "seconds", surface), 0, 2);
    run->addWidget(namedLabel("Label22", "Running Time", surface), 1, 0);
    run->addWidget(Label11, 1, 1);
    run->addWidget(Label12, 1, 2);
    run->addWidget(namedLabel("Label23", "Encoded Time", surface), 2, 0);
    run->addWidget(Label13, 2, 1);
    run->addWidget(namedLabel("barMaximumCaption", "Progress Bar Maximum", surface), 3, 0);
    run->addWidget(Label4, 3, 2);
    run->setColumnStretch(3, 1);
    layout->addLayout(run);
    PBar = new QProgressBar(surface);
    PBar->setObjectName("PBar");
    PBar->setTextVisible(false);
    layout->addWidget(PBar);
    Label8 = namedLabel("Label8", "Compression Progress 00.00% Completed", surface);
    layout->addWidget(Label8);
}

}  // namespace quillet
