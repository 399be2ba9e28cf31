#pragma once

#include <QMainWindow>
#include <QTimer>
#include <cstdint>
#include <initializer_list>
#include <memory>

#include "app/forms.h"
#include "app/main_window.h"
#include "main/form1_controls.h"
#include "main/slider_tables.h"
#include "tools/duration_probe.h"
#include "tools/progress_display.h"

namespace quillet {

// The main window, where a user composes a compression job and watches it run.
class Form1 : public QMainWindow, public FormEvents, public MainWindow, public ProgressDisplay {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form1;

    explicit Form1(Forms& forms);

    void Form_Load() override;

    // Chooses the source video with the file dialog (left button only; other callers pass 1).
    void Label21_MouseUp(int Button);

    // Gives the window its outer size (frame included); the user can neither resize nor maximise
    // it.
    void setOuterSize(QSize outer);

    // What start-up does to the window once it is up: its outer size, the method items other than
    // the target size shown unselected, and every slider but the preset inactive until a method is
    // chosen.
    void prepareAtStartup() override;
    void showCpuText(const std::string& text) override;

    // The method items can be chosen once there is a source video.
    void enableMethodItems();
    // No method chosen (a tool is working, or the window is reset).
    void clearMethodSelection();

    // Copies the shown settings into the job settings when a job starts, and stamps its start
    // time.
    void CompressionVars();

    // Lights the speed cells 0 up to and including `ProcSpeed`; the others keep their look.
    void CompressionSpeedDisplay(int ProcSpeed) override;
    // Returns every speed cell to normal.
    void ZeroSpeed();
    // Follows the shared speed level in the speed cells while a job runs.
    void setSpeedDisplayRunning(bool running) override;

    // What a job shows here while its ffmpeg runs.
    ProgressDisplay& progressDisplay() override { return *this; }
    void setProgressMaximum(double seconds) override;
    void setProgressValue(double seconds) override;
    void setProgressCaption(const std::string& caption) override;
    void setWrittenText(const std::string& text) override;
    // A piece that moved the percentage: the written size in the highlight colour for a moment.
    void highlightProgress() override;
    bool playOnCompletion() const override;
    void resetProgressDisplay() override;
    void normalSpeedCellsButLast() override;
    void showStatusText(StatusCell cell, const std::string& text) override;
    void markStatusCell(StatusCell cell) override;
    void showToolSourceSize(const std::string& sizeText) override;
    void showRunningTime(const std::string& clock) override;
    std::optional<int> selectedSampleRateItem() const override;
    void selectSampleRateItem(std::optional<int> item) override;

    // The reset procedure (Reset App, and the end of every job and tool): the controls show their
    // initial texts, the shared values go back to theirs, and the job and tool windows go.
    void ResetApp() override;

    Form1Controls& controls() { return c_; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void Form_QueryUnload();
    void connectHandlers();
    void setUpTimers();

    // The menu bar and its commands.
    void buildMenus();
    void mnu_ShowCPU_Click();
    // Puts the stored processor-monitor switch in place; a stored text other than 1 or 0 leaves
    // it as it is.
    void applyStoredCpuSwitch();
    void showCpuMonitor(bool on);
    void mnu_StartCompress_Click();
    // Opens a tool window, after the tool check, with no method chosen meanwhile.
    void openTool(FormId tool);
    // Opens the metadata editor; it needs no tool check and leaves the method chosen.
    void openMetadataEditor();
    void mnu_Help_Click();
    void mnu_AboutThisApp_Click();

    void xpOption1_Click(int index);
    void Option1_Click(int index);
    void xpSlider1_ValueChanged();
    void xpSlider2_ValueChanged();
    void xpSlider3_ValueChanged();
    void xpSlider4_ValueChanged();
    void xpSlider5_ValueChanged();
    void xpSlider6_ValueChanged();
    void xpSlider7_ValueChanged();
    void xpSlider8_ValueChanged();
    void xpSlider9_ValueChanged();
    void xpSlider10_ValueChanged();
    void Text6_Change();
    void Text8_Change();
    void Timer1_Timer();
    void Timer9_Timer();
    void Timer11_Timer();
    // Polls the running time of the source until it is known.
    void Timer3_Timer();
    // Opens the job window of the chosen method, which runs the job.
    void startJobWindow(const std::string& method);

    void showSliderLabel(const SliderLabel& label, QLabel* value, QLabel* unit);
    // Shows a slider's new value in the highlight colour for a moment.
    void flashValues(std::initializer_list<QWidget*> widgets);
    void flashStatus(StatusCell cell, const QString& text, QTimer& restore);

    Forms& forms_;
    Form1Controls c_;
    std::int16_t lastSpeedShown_ = 0;
    bool systemMenuTrimmed_ = false;

    QTimer Timer1;   // speed cells
    QTimer Timer2;   // end of the "Browse" hover
    QTimer Timer3;   // running time of the source
    QTimer Timer4;   // status strip colours
    QTimer Timer5;   // method cell colour
    QTimer Timer6;   // sample-rate cell colour
    QTimer Timer7;   // end of a caption hover
    QTimer Timer8;   // information box colours
    QTimer Timer9;   // splash window gone once a tool runs
    QTimer Timer10;  // slider value colours
    QTimer Timer11;  // end of a target-size job
    QTimer Timer13;  // status strip colours

    // Source selection.
    // A mouse release on the "Browse" label chooses the source.
    void connectSourceLabel();
    // The source's file name, and "No Video Selected" exactly while there is none.
    void showSourceName(const QString& name);

    std::unique_ptr<DurationProbe> durationProbe_;  // asks the running time of the latest source
};

}  // namespace quillet
