#pragma once

#include <QString>
#include <array>
#include <vector>

#include "app/main_window.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QWidget;

namespace quillet {

class OptionArray;
class SpeedCellRow;
class XpSlider;

// Every control of the main window, by the name the program gives it. The windows that write into
// the main window (source selection, jobs, tools, the reset) reach its controls through this.
struct Form1Controls {
    // Source video.
    QLabel* Label21 = nullptr;   // "Browse"
    QLabel* Label24 = nullptr;   // "No Video Selected"
    QLabel* Label3 = nullptr;    // file name of the source
    QLineEdit* Text6 = nullptr;  // "Original Size", MB
    QLineEdit* Text1 = nullptr;  // "Video Run Time (h:mm:ss)"
    QLineEdit* Text8 = nullptr;  // "Video Time in Seconds"

    // Method and its parameters.
    OptionArray* xpOption1 = nullptr;  // 0 Target File Size, 1 CRF, 2 ABR, 3 QP
    XpSlider* xpSlider1 = nullptr;     // preset
    XpSlider* xpSlider2 = nullptr;     // CRF
    XpSlider* xpSlider3 = nullptr;     // audio bit rate
    XpSlider* xpSlider4 = nullptr;     // target size
    XpSlider* xpSlider5 = nullptr;     // ABR
    XpSlider* xpSlider6 = nullptr;     // QP
    XpSlider* xpSlider7 = nullptr;     // minimum bit rate
    XpSlider* xpSlider8 = nullptr;     // buffer size
    XpSlider* xpSlider9 = nullptr;     // QP look-ahead
    XpSlider* xpSlider10 = nullptr;    // maximum bit rate
    QLabel* Label9 = nullptr;          // preset name
    QLabel* Label12 = nullptr;         // CRF
    QLabel* Label14 = nullptr;         // audio kbit/s
    QLabel* Label16 = nullptr;         // audio unit
    QLabel* Label30 = nullptr;         // ABR value
    QLabel* Label31 = nullptr;         // ABR unit
    QLabel* Label35 = nullptr;         // minimum value
    QLabel* Label39 = nullptr;         // minimum unit
    QLabel* Label36 = nullptr;         // maximum value
    QLabel* Label40 = nullptr;         // maximum unit
    QLabel* Label45 = nullptr;         // buffer value
    QLabel* Label46 = nullptr;         // buffer unit
    QLabel* Label33 = nullptr;         // QP
    QLabel* Label42 = nullptr;         // QP look-ahead
    QLineEdit* Text7 = nullptr;        // "Target Size (Mb)"
    QLineEdit* Text10 = nullptr;       // "New Bit Rate (kbps)"
    QLabel* Label2 = nullptr;          // target as a share of the source
    OptionArray* Option1 = nullptr;    // 0 "44100 Hz", 1 "48000 Hz"

    // Running job.
    QLineEdit* Text3 = nullptr;   // "Process Start Time"
    QCheckBox* Check1 = nullptr;  // "Play on completion"
    QLabel* Label1 = nullptr;     // progress caption
    QProgressBar* PBar = nullptr;
    SpeedCellRow* Label8 = nullptr;  // speed cells
    QWidget* statusStrip = nullptr;
    std::array<QLabel*, static_cast<std::size_t>(StatusCell::Count)> Label26{};

    // Captions and value labels that react to the mouse.
    std::vector<QLabel*> hoverCaptions;
    std::vector<QLabel*> valueLabels;

    QLabel* status(StatusCell cell) const { return Label26[static_cast<std::size_t>(cell)]; }
};

// Builds every control with its initial text on `surface` and lays them out, top to bottom in the
// order of a job: source, method and its parameters, preset and audio, start, progress and speed,
// and the status strip along the bottom edge.
Form1Controls buildForm1Controls(QWidget* surface);

}  // namespace quillet
