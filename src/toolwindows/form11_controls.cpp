// The down-scale tool's controls, menus and layout.
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "toolwindows/down_scale_choices.h"
#include "toolwindows/form11.h"
#include "toolwindows/tool_controls.h"
#include "widgets/mouse_up.h"
#include "widgets/option_array.h"
#include "widgets/tool_menus.h"

namespace quillet {

namespace {

// A group of options laid out in one row under a heading widget.
QGroupBox* optionRow(QWidget* heading, OptionArray* options, QWidget* parent) {
    auto* box = new QGroupBox(parent);
    auto* grid = new QGridLayout(box);
    grid->addWidget(heading, 0, 0, 1, options->count());
    for (int index = 0; index < options->count(); ++index) {
        grid->addWidget(options->item(index), 1, index);
    }
    return box;
}

}  // namespace

void Form11::buildControls() {
    auto* surface = new QWidget(this);
    setCentralWidget(surface);
    auto* layout = new QVBoxLayout(surface);

    auto* current = new QHBoxLayout;
    current->addWidget(namedLabel("Label12", "Current Width x Height", surface));
    Label13 = namedLabel("Label13", "0000 x 0000", surface);
    current->addWidget(Label13);
    current->addStretch();
    layout->addLayout(current);

    auto* resolutionBox = new QGroupBox(surface);
    Option1 = new OptionArray("Option1", captionList(kResolutionCaptions), resolutionBox);
    Option1->select(0);
    auto* grid = new QGridLayout(resolutionBox);
    grid->addWidget(namedLabel("Label1", "Common 16:9 Resolution", resolutionBox), 0, 0, 1, 2);
    for (int index = 0; index < Option1->count(); ++index) {
        grid->addWidget(Option1->item(index), 1 + index / 2, index % 2);
    }
    grid->addWidget(namedLabel("Label5", "New Selected Resolution", resolutionBox), 3, 0);
    Label2 = namedLabel("Label2", "426:240", resolutionBox);
    grid->addWidget(Label2, 3, 1);
    layout->addWidget(resolutionBox);

    Check1 = new QCheckBox("Set CRF", surface);
    Check1->setObjectName("Check1");
    Option2 = new OptionArray("Option2", captionList(kDownScaleCrfs), surface);
    layout->addWidget(optionRow(Check1, Option2, surface));
    Check2 = new QCheckBox("Encode Video Audio to MP3 ", surface);
    Check2->setObjectName("Check2");
    Option3 = new OptionArray("Option3", captionList(kDownScaleQScales), surface);
    auto* mp3 = optionRow(Check2, Option3, surface);
    static_cast<QGridLayout*>(mp3->layout())
        ->addWidget(namedLabel("Label11", "q Scale", mp3), 1, 3);
    layout->addWidget(mp3);

    auto* commands = new QHBoxLayout;
    Label9 = namedLabel("Label9", "Select Video", surface);
    Label3 = namedLabel("Label3", "Compress Video", surface);
    for (QLabel* command : {Label9, Label3}) {
        showAsCommand(command);
        commands->addWidget(command);
    }
    layout->addLayout(commands);
    Label6 = namedLabel("Label6", "Video Name", surface);
    Label6->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(Label6);
    auto* status = new QHBoxLayout;
    status->addWidget(namedLabel("Label7", "Process:", surface));
    Label8 = namedLabel("Label8", "Waiting for Source Video", surface);
    status->addWidget(Label8, 1);
    layout->addLayout(status);

    addToolMenu(*this, "mnu_File", "File",
                {{"mnu_Select", "Select Video", [this] { mnu_Select_Click(); }}});
    addToolMenu(*this, "mnu_Encode", "Encode",
                {{"mnu_EncVideo", "Encode Video", [this] { mnu_EncVideo_Click(); }}});
}

void Form11::connectHandlers() {
    connect(Option1, &OptionArray::Click, this, &Form11::Option1_Click);
    connect(Option2, &OptionArray::Click, this, &Form11::Option2_Click);
    connect(Option3, &OptionArray::Click, this, &Form11::Option3_Click);
    connect(Check1, &QCheckBox::clicked, this, &Form11::Check1_Click);
    connect(Check2, &QCheckBox::clicked, this, &Form11::Check2_Click);
    onMouseUp(Label9, [this](int button) {
        if (button == 1) mnu_Select_Click();
    });
    onMouseUp(Label3, [this](int button) {
        if (button == 1) mnu_EncVideo_Click();
    });
    connect(&Timer2, &QTimer::timeout, this, &Form11::Timer2_Timer);
}

}  // namespace quillet
