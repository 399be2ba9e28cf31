#pragma once

#include <QTimer>
#include <string>

#include "toolwindows/main_window_progress.h"
#include "toolwindows/tool_window.h"

class QCheckBox;
class QLabel;
class QLineEdit;

namespace quillet {

class OptionArray;

// The frame-rate tool: re-encodes a video with libx265 at one of six common frame rates or a
// whole number typed in, keeping the audio as AAC at the main window's rate. Its progress shows
// on the main window.
class Form13 : public ToolWindow, public MainWindowProgress {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form13;

    explicit Form13(Forms& forms);

    void Form_Load() override;

    std::string commandLine() const override;

    // The main window shows the percentage; the bar stays as it is.
    void setProgressMaximum(double) override {}
    void setProgressValue(double) override {}
    void setProgressCaption(const std::string& caption) override;

private:
    void buildControls();
    void connectHandlers();

    void Option1_Click(int Index);
    void Check1_Click();
    void Text1_Change();
    void mnu_SelectVideo_Click();
    void mnu_EncodeVideo_Click();
    void CompressVideo();
    // Polls the running time of the source until it is known.
    void Timer2_Timer();
    // The end of a run: the window as it loads, ready for the next source.
    void finishRun() override;
    void enableChoices(bool enabled);

    int frameRate_ = 30;
    std::string output_;
    std::string sizeText_;
    std::string videoSeconds_;  // the source's running time, for the percentage

    OptionArray* Option1;
    QCheckBox* Check1;
    QLineEdit* Text1;
    QLabel* Label1;  // the source
    QLabel* Label2;  // status line
    QLabel* Label3;  // "Change fps"

    QTimer Timer2;  // running time of the source
};

}  // namespace quillet
