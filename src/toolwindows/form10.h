#pragma once

#include <QTimer>
#include <string>

#include "toolwindows/main_window_progress.h"
#include "toolwindows/tool_window.h"

class QGroupBox;
class QLabel;
class QListWidget;
class QProgressBar;
class QVBoxLayout;

namespace quillet {

class OptionArray;
class XpSlider;

// The MP3 audio tool: re-encodes a video's picture with libx265 at a rate factor and preset while
// its audio becomes MP3 at a chosen quality and sample rate. It shows the run on its own bar,
// caption and clock; the size written and the speed go to the main window.
class Form10 : public ToolWindow, public MainWindowProgress {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form10;

    explicit Form10(Forms& forms);

    // Every choice back to its default: CRF 20, "veryfast", qscale 5, "44100".
    void Form_Load() override;

    std::string commandLine() const override;

    // Where the run shows itself: the bar, its caption and the encoded time here.
    void setProgressMaximum(double seconds) override;
    void setProgressValue(double seconds) override;
    void setProgressCaption(const std::string& caption) override;

private:
    void buildControls();
    // The rate factor and preset of the picture, the quality and sample rate of the sound.
    QGroupBox* buildVideoChoices(QWidget* surface);
    QGroupBox* buildAudioChoices(QWidget* surface);
    // The running and encoded times, the bar and its caption, added to `layout`.
    void buildRunDisplay(QWidget* surface, QVBoxLayout* layout);
    void buildMenus();
    void connectHandlers();
    void ChangeColorOfProgBar();

    void mnu_SelectVideo_Click();
    void mnu_Reset_Click();
    void mnu_ReEncode_Click();
    void mnu_ViewffmpegString_Click();
    void CompressVideo();
    void List1_Click();
    void Option1_Click(int index);
    void xpSlider1_ValueChanged();
    void xpSlider2_ValueChanged();
    // Polls the running time of the source until it is known.
    void Timer1_Timer();
    // The end of a run: the main window's captions back to their start.
    void finishRun() override;
    // Shows a caption in the highlight colour until its timer puts the normal colour back.
    void flash(QLabel* label, QTimer& restore);

    std::string sampleRate_ = "44100";

    QLabel* Label1;   // the source's name
    QLabel* Label4;   // the bar's end, in seconds
    QLabel* Label5;   // qscale
    QLabel* Label8;   // progress caption
    QLabel* Label11;  // running time of the source
    QLabel* Label12;  // the same in seconds
    QLabel* Label13;  // encoded time
    QLabel* Label14;  // preset
    QLabel* Label15;  // rate factor heading
    QLabel* Label16;  // rate factor
    QLabel* Label19;  // sample rate
    QLabel* Label21;  // audio quality heading
    XpSlider* xpSlider1;
    XpSlider* xpSlider2;
    QListWidget* List1;
    OptionArray* Option1;
    QProgressBar* PBar;

    QTimer Timer1;  // running time of the source
    QTimer Timer2;  // Label19 colour
    QTimer Timer3;  // Label15 colour
    QTimer Timer4;  // Label14 colour
    QTimer Timer5;  // Label1 colour
    QTimer Timer6;  // Label21 colour
};

}  // namespace quillet
