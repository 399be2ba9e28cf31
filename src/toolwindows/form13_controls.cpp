// The frame-rate tool's controls, menus and layout.
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/twips.h"
#include "toolwindows/form13.h"
#include "toolwindows/frame_rate_choices.h"
#include "toolwindows/tool_controls.h"
#include "widgets/mouse_up.h"
#include "widgets/option_array.h"
#include "widgets/tool_menus.h"

namespace quillet {

namespace {

constexpr int kWidthTwips = 8745;
constexpr int kHeightTwips = 3720;

}  // namespace

void Form13::buildControls() {
    resize(twipsToPixels(kWidthTwips), twipsToPixels(kHeightTwips));
    auto* surface = new QWidget(this);
    setCentralWidget(surface);
    auto* layout = new QVBoxLayout(surface);

    auto* heading = new QLabel("Alter the Video Frames Per Second Rate (fps)", surface);
    heading->setObjectName("Label4");

    auto* rates = new QGroupBox("Video Frame Rate (fps)", surface);
    auto* grid = new QGridLayout(rates);
    Option1 = new OptionArray("Option1", captionList(kFrameRates), rates);
    for (int index = 0; index < Option1->count(); ++index) {
        grid->addWidget(Option1->item(index), 0, index);
    }
    Check1 = new QCheckBox("Custom fps", rates);
    Check1->setObjectName("Check1");
    Text1 = new QLineEdit("30", rates);
    Text1->setObjectName("Text1");
    Text1->setMaximumWidth(80);
    grid->addWidget(Check1, 1, 0, 1, 2);
    grid->addWidget(Text1, 1, 2);

    Label1 = new QLabel("Video Name", surface);
    Label1->setObjectName("Label1");
    Label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Label2 = new QLabel(surface);
    Label2->setObjectName("Label2");

    // "Change fps" runs the encode, as the down-scale tool's "Compress Video" does, and looks
    // like it: a command along the bottom edge.
    Label3 = new QLabel("Change fps", surface);
    Label3->setObjectName("Label3");
    showAsCommand(Label3);

    // Room to spare goes between the parts, evenly, so no part of the window stands empty.
    layout->addWidget(heading);
    layout->addStretch(1);
    layout->addWidget(rates);
    layout->addStretch(1);
    layout->addWidget(Label1);
    layout->addWidget(Label2);
    layout->addStretch(1);
    layout->addWidget(Label3);

    addToolMenu(*this, "mnu_File", "File",
                {{"mnu_SelectVideo", "Select Video", [this] { mnu_SelectVideo_Click(); }}});
    addToolMenu(*this, "mnu_Encode", "Encode",
                {{"mnu_EncodeVideo", "Encode Video", [this] { mnu_EncodeVideo_Click(); }}});
}

void Form13::connectHandlers() {
    connect(Option1, &OptionArray::Click, this, &Form13::Option1_Click);
    connect(Check1, &QCheckBox::clicked, this, &Form13::Check1_Click);
    connect(Text1, &QLineEdit::textChanged, this, &Form13::Text1_Change);
    onMouseUp(Label3, [this](int button) {
        if (button == 1) mnu_EncodeVideo_Click();
    });
    connect(&Timer2, &QTimer::timeout, this, &Form13::Timer2_Timer);
}

}  // namespace quillet
