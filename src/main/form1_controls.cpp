#include "main/form1_controls.h"

#include <QCheckBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QVBoxLayout>

#include "main/form1_control_parts.h"
#include "main/speed_cell_row.h"
#include "widgets/option_array.h"
#include "widgets/xp_slider.h"

namespace quillet {

namespace {

class Builder {
public:
    explicit Builder(QWidget* surface) : surface_(surface) {}

    Form1Controls build() {
        auto* layout = new QVBoxLayout(surface_);
        // The status strip sits 2 pixels above the bottom edge and spans the width less 5.
        layout->setContentsMargins(2, 6, 3, 2);
        layout->setSpacing(6);
        auto* content = new QVBoxLayout;
        content->setContentsMargins(6, 0, 3, 0);
        content->setSpacing(6);
        // Room to spare goes between the groups, evenly, not inside them.
        for (QWidget* group : std::initializer_list<QWidget*>{
                 sourcePanel(), methodPanel(), targetPanel(), crfAndQpRow(), abrPanel(),
                 presetAndAudioRow(), progressPanel(), speedPanel()}) {
            if (content->count() > 0) content->addStretch(1);
            content->addWidget(group);
        }
        layout->addLayout(content, 1);
        layout->addWidget(statusStrip());
        return c_;
    }

private:
    Panel panel(const QString& caption) {
        Panel p = makePanel(caption, surface_);
        c_.hoverCaptions.push_back(p.caption);
        return p;
    }

    XpSlider* slider(int min, int max, int position, const QString& name) {
        auto* control = new XpSlider(min, max, position, surface_);
        control->setObjectName(name);
        return control;
    }

    QLabel* value(const QString& text, const QString& name, const QString& widest) {
        QLabel* label = makeValueLabel(text, name, widest, surface_);
        c_.valueLabels.push_back(label);
        return label;
    }

    QLabel* caption(const QString& text) {
        QLabel* label = makeLabel(text, surface_);
        c_.hoverCaptions.push_back(label);
        return label;
    }

    // Groups side by side, of equal width and height.
    QWidget* row(std::initializer_list<QFrame*> frames) {
        auto* holder = new QWidget(surface_);
        holder->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        auto* layout = new QHBoxLayout(holder);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(6);
        for (QFrame* frame : frames) {
            frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
            layout->addWidget(frame, 1);
        }
        return holder;
    }

    QFrame* sourcePanel() {
        Panel p = panel("Select the Video to be Compressed");
        c_.Label21 = makeLabel("Browse", surface_, "Label21");
        c_.Label21->setFrameShape(QFrame::Panel);
        c_.Label21->setFrameShadow(QFrame::Raised);
        c_.Label21->setAlignment(Qt::AlignCenter);
        c_.Label21->setMinimumSize(90, 22);
        c_.Label21->setCursor(Qt::PointingHandCursor);
        c_.Label24 = makeLabel("No Video Selected", surface_, "Label24");
        c_.Label3 = makeLabel(QString(), surface_, "Label3");
        // A long file name is cut off at the window's edge rather than widening it.
        c_.Label3->setMinimumWidth(1);
        c_.Label3->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        auto* name = new QHBoxLayout;
        name->addWidget(c_.Label24);
        name->addWidget(c_.Label3, 1);
        p.grid->addWidget(c_.Label21, 0, 0);
        p.grid->addLayout(name, 0, 1, 1, 2);

        c_.Text6 = makeBox("0,000", "Text6", surface_);
        c_.Text1 = makeBox("0:00:00", "Text1", surface_);
        c_.Text8 = makeBox("0000", "Text8", surface_);
        p.grid->addWidget(caption("Original Size"), 1, 0);
        p.grid->addWidget(caption("Video Run Time (h:mm:ss)"), 1, 1);
        p.grid->addWidget(caption("Video Time in Seconds"), 1, 2);
        p.grid->addWidget(c_.Text6, 2, 0);
        p.grid->addWidget(c_.Text1, 2, 1);
        p.grid->addWidget(c_.Text8, 2, 2);
        for (int column = 0; column < 3; ++column) p.grid->setColumnStretch(column, 1);
        return p.frame;
    }

    QFrame* methodPanel() {
        Panel p = panel("Compression Method");
        c_.xpOption1 = new OptionArray("xpOption1",
                                       {"Target File Size (TFS)", "Constant Rate Factor (CRF)",
                                        "Average Bit Rate (ABR)", "Constant Quantizer (QP)"},
                                       surface_);
        for (int index = 0; index < c_.xpOption1->count(); ++index) {
            p.grid->addWidget(c_.xpOption1->item(index), index / 2, index % 2);
        }
        p.grid->setColumnStretch(0, 1);
        p.grid->setColumnStretch(1, 1);
        // The window opens with the target-size method chosen, as its status cell says.
        c_.xpOption1->select(0);
        return p.frame;
    }

    QFrame* targetPanel() {
        Panel p = panel("Target Size (Mb)");
        c_.xpSlider4 = slider(0, 100, 60, "xpSlider4");
        c_.Text7 = makeBox("0,000", "Text7", surface_);
        c_.Text10 = makeBox("0,000", "Text10", surface_);
        c_.Label2 = makeLabel("Target Size - 60% of Original Video Size", surface_, "Label2");
        // The share of the source grows to "Compress to 100%" once a video is chosen: it has a line
        // of its own under the slider, so it never reaches the bit rate's caption or its box.
        p.grid->addWidget(c_.xpSlider4, 0, 0, 1, 2);
        p.grid->addWidget(c_.Text7, 0, 2);
        p.grid->addWidget(c_.Label2, 1, 0, 1, 3);
        p.grid->addWidget(caption("New Bit Rate (kbps)"), 2, 1, Qt::AlignRight);
        p.grid->addWidget(c_.Text10, 2, 2);
        p.grid->setColumnStretch(0, 1);
        p.grid->setColumnMinimumWidth(2, 90);
        return p.frame;
    }

    QWidget* crfAndQpRow() {
        Panel crf = panel("(CRF) Constant Rate Factor");
        c_.xpSlider2 = slider(0, 50, 20, "xpSlider2");
        c_.Label12 = value("20", "Label12", "50");
        addSliderRow(crf.grid, 0, 0, c_.xpSlider2, c_.Label12);

        Panel qp = panel("QP (Constant Quantizer)");
        c_.xpSlider6 = slider(0, 50, 18, "xpSlider6");
        // The label keeps its first text until the slider first moves, although the slider stands
        // at 18.
        c_.Label33 = value("14", "Label33", "50");
        addSliderRow(qp.grid, 0, 0, c_.xpSlider6, c_.Label33);

        Panel lookAhead = panel("QP (Look-Ahead)");
        c_.xpSlider9 = slider(0, 50, 18, "xpSlider9");
        c_.Label42 = value("18", "Label42", "50");
        addSliderRow(lookAhead.grid, 0, 0, c_.xpSlider9, c_.Label42);

        return row({crf.frame, qp.frame, lookAhead.frame});
    }

    QFrame* abrPanel() {
        Panel p = panel("ABR (Average Bit Rate)");
        c_.xpSlider5 = slider(0, 100, 46, "xpSlider5");
        c_.Label30 = value("920", "Label30", "0000");
        c_.Label31 = value("k", "Label31", "M");
        c_.xpSlider10 = slider(5, 50, 10, "xpSlider10");
        c_.Label36 = value("2.0", "Label36", "00.0");
        c_.Label40 = value("M", "Label40", "M");
        c_.xpSlider7 = slider(0, 30, 7, "xpSlider7");
        c_.Label35 = value("1.1", "Label35", "000");
        c_.Label39 = value("M", "Label39", "M");
        c_.xpSlider8 = slider(1, 20, 11, "xpSlider8");
        c_.Label45 = value("1.1", "Label45", "000");
        c_.Label46 = value("M", "Label46", "M");

        // The average-rate slider spans the width; the three limits share it below.
        p.grid->addWidget(c_.xpSlider5, 0, 0, 1, 7);
        p.grid->addWidget(c_.Label30, 0, 7);
        p.grid->addWidget(c_.Label31, 0, 8);
        p.grid->addWidget(caption("Max Bit Rate"), 1, 0);
        p.grid->addWidget(caption("Min Bit Rate"), 1, 3);
        p.grid->addWidget(caption("Buffer Size"), 1, 6);
        addSliderRow(p.grid, 2, 0, c_.xpSlider10, c_.Label36, c_.Label40);
        addSliderRow(p.grid, 2, 3, c_.xpSlider7, c_.Label35, c_.Label39);
        addSliderRow(p.grid, 2, 6, c_.xpSlider8, c_.Label45, c_.Label46);
        for (int column : {0, 3, 6}) p.grid->setColumnStretch(column, 1);
        return p.frame;
    }

    QWidget* presetAndAudioRow() {
        Panel preset = panel("Preset:");
        c_.xpSlider1 = slider(1, 8, 3, "xpSlider1");
        c_.Label9 = value("VeryFast", "Label9", "UltraFast");
        addSliderRow(preset.grid, 0, 0, c_.xpSlider1, c_.Label9);

        Panel audio = panel("Audio Bitrate");
        c_.xpSlider3 = slider(1, 13, 6, "xpSlider3");
        c_.Label14 = value("160", "Label14", "000");
        c_.Label16 = value("k", "Label16", "k");
        addSliderRow(audio.grid, 0, 0, c_.xpSlider3, c_.Label14, c_.Label16);

        Panel rate = panel("Audio Sample Rate");
        c_.Option1 = new OptionArray("Option1", {"44100 Hz", "48000 Hz"}, surface_);
        c_.Option1->select(0);
        rate.grid->addWidget(c_.Option1->item(0), 0, 0);
        rate.grid->addWidget(c_.Option1->item(1), 0, 1);

        return row({preset.frame, audio.frame, rate.frame});
    }

    QFrame* progressPanel() {
        auto* frame = new QFrame(surface_);
        frame->setFrameShape(QFrame::StyledPanel);
        frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
        auto* grid = new QGridLayout(frame);
        grid->setContentsMargins(10, 8, 10, 8);
        grid->setVerticalSpacing(6);
        c_.Text3 = makeBox("0:00:00", "Text3", surface_);
        c_.Text3->setMaximumWidth(100);
        c_.Check1 = new QCheckBox("Play on completion", surface_);
        c_.Check1->setObjectName("Check1");
        c_.Label1 = makeLabel("Compression Progress 00.00% Completed", surface_, "Label1");
        c_.PBar = new QProgressBar(surface_);
        c_.PBar->setObjectName("PBar");
        c_.PBar->setTextVisible(false);
        c_.PBar->setValue(0);
        c_.PBar->setFixedHeight(18);
        c_.PBar->setStyleSheet(
            "QProgressBar { background-color: rgb(38, 56, 80); border: 1px solid rgb(38, 56, 80); }"
            "QProgressBar::chunk { background-color: rgb(43, 124, 211); }");
        grid->addWidget(caption("Process Start Time"), 0, 0);
        grid->addWidget(c_.Text3, 0, 1);
        grid->addWidget(c_.Check1, 0, 3, Qt::AlignRight);
        grid->setColumnStretch(2, 1);
        grid->addWidget(c_.Label1, 1, 0, 1, 4);
        grid->addWidget(c_.PBar, 2, 0, 1, 4);
        return frame;
    }

    QFrame* speedPanel() {
        Panel p = panel(
            "Current Compression Process Speed ( 1x = Normal Play Speed or 2x = Twice Normal Play "
            "Speed");
        p.caption->setWordWrap(true);
        c_.Label8 = new SpeedCellRow(surface_);
        p.grid->addWidget(c_.Label8, 0, 0);
        return p.frame;
    }

    QWidget* statusStrip() {
        auto* strip = new QFrame(surface_);
        strip->setObjectName("statusStrip");
        auto* row = new QHBoxLayout(strip);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(2);
        const std::array<const char*, static_cast<std::size_t>(StatusCell::Count)> texts = {
            "Method:Target Size", "CPU: Calculating", "Init Size: 0,000Mb", "Writen: 0,000Mb",
            "44100Hz"};
        for (std::size_t index = 0; index < texts.size(); ++index) {
            QLabel* cell = makeLabel(texts[index], strip, QString("Label26(%1)").arg(index));
            cell->setFrameShape(QFrame::Panel);
            cell->setFrameShadow(QFrame::Sunken);
            cell->setContentsMargins(3, 1, 3, 1);
            row->addWidget(cell, index + 1 == texts.size() ? 0 : 1);
            c_.Label26[index] = cell;
        }
        c_.statusStrip = strip;
        return strip;
    }

    QWidget* surface_;
    Form1Controls c_;
};

}  // namespace

Form1Controls buildForm1Controls(QWidget* surface) {
    return Builder(surface).build();
}

}  // namespace quillet
