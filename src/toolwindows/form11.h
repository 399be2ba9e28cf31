#pragma once

#include <QTimer>
#include <string>

#include "tools/resolution_display.h"
#include "toolwindows/tool_window.h"

class QCheckBox;
class QLabel;

namespace quillet {

class OptionArray;

// The down-scale tool: re-encodes a video with libx265 at one of four 16:9 picture sizes, with a
// fixed rate factor and MP3 audio if asked. The source's picture size comes from the resolution
// probe; the run shows on the main window, which is reset when it ends (closing this window).
class Form11 : public ToolWindow, public ResolutionDisplay {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form11;

    explicit Form11(Forms& forms);

    void Form_Load() override;
    void showResolution(const std::string& text) override;

    std::string commandLine() const override;

private:
    void buildControls();
    void connectHandlers();

    void mnu_Select_Click();
    void GetDuration(const std::string& path);
    void mnu_EncVideo_Click();
    void Option1_Click(int index);
    void Option2_Click(int index);
    void Option3_Click(int index);
    void Check1_Click();
    void Check2_Click();
    // Ticked: every choice enabled and selected in turn, so the last one stands; unticked: none
    // selected and all disabled, the value kept.
    void tickChoices(OptionArray* choices, bool ticked);
    // Polls the running time of the source until it is known.
    void Timer2_Timer();
    // The full reset after every run: the window as it loads, with 240p chosen.
    void finishRun() override;

    std::string scale_ = "426:240";
    std::string output_;
    int crf_ = 25;
    int qscale_ = 7;
    std::string sizeText_;

    QLabel* Label13;  // the source's width x height
    OptionArray* Option1;
    QLabel* Label2;  // the chosen W:H
    QCheckBox* Check1;
    OptionArray* Option2;
    QCheckBox* Check2;
    OptionArray* Option3;
    QLabel* Label9;  // "Select Video"
    QLabel* Label3;  // "Compress Video"
    QLabel* Label6;  // the source
    QLabel* Label8;  // status line

    QTimer Timer2;  // running time of the source
};

}  // namespace quillet
