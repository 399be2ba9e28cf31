#include "jobs/job_machine.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>

#include "app/forms.h"
#include "app/main_window.h"
#include "app/scripted_dialogs.h"
#include "native_path.h"
#include "tools/progress_display.h"

namespace quillet {
namespace {

// A main window that writes down what a job asks of it, and when.
class RecordingMainWindow : public QWidget, public MainWindow, public ProgressDisplay {
public:
    explicit RecordingMainWindow(std::function<void(std::string)> note) : note_(std::move(note)) {}

    void prepareAtStartup() override {}
    void showCpuText(const std::string&) override {}
    ProgressDisplay& progressDisplay() override { return *this; }
    void setSpeedDisplayRunning(bool running) override {
        note_(running ? "speed display on" : "speed display off");
    }
    bool playOnCompletion() const override { return true; }
    void resetProgressDisplay() override { note_("progress display reset"); }
    void normalSpeedCellsButLast() override { note_("speed cells normal"); }
    void ResetApp() override { note_("reset"); }
    void showStatusText(StatusCell, const std::string&) override {}
    void markStatusCell(StatusCell) override {}
    void showToolSourceSize(const std::string&) override {}
    void showRunningTime(const std::string&) override {}
    std::optional<int> selectedSampleRateItem() const override { return std::nullopt; }
    void selectSampleRateItem(std::optional<int>) override {}
    void setProgressMaximum(double) override {}
    void setProgressValue(double) override {}
    void setProgressCaption(const std::string& caption) override { note_(caption); }
    void setWrittenText(const std::string&) override {}
    void highlightProgress() override {}
    void CompressionSpeedDisplay(int) override {}

private:
    std::function<void(std::string)> note_;
};

// A job window of the given method whose ffmpeg is a stand-in that prints one stats line.
class JobMachineTest : public ::testing::TestWithParam<const char*> {
protected:
    JobMachineTest() {
        clock.start();
        Forms::Factories factories;
        factories[static_cast<std::size_t>(FormId::Form1)] = [this](Forms&) {
            return new RecordingMainWindow([this](std::string what) { note(std::move(what)); });
        };
        const CompressionJob& job = *compressionJobForMethod(GetParam());
        factories[static_cast<std::size_t>(job.window)] = [this, &job](Forms& registry) {
            return new JobWindowStandIn(registry, job,
                                        [this](std::string what) { note(std::move(what)); });
        };
        forms = std::make_unique<Forms>(state, dialogs, factories);
        forms->load(FormId::Form1);
        state.VideoSeconds = "400";
        state.SourceVideo = native("/videos/clip.mp4");
    }

    struct JobWindowStandIn : QWidget, FormEvents {
        JobWindowStandIn(Forms& forms, const CompressionJob& job,
                         std::function<void(std::string)> note)
            : note_(std::move(note)),
              machine_(forms, *this,
                       {job.window,
                        job.steps,
                        [] { return std::string(CHILD_RECORD_ARGS " \"time=00:00:04.00\""); },
                        job.followsTime,
                        kCaptionCompleted,
                        [&forms] { return &forms.mainWindow()->progressDisplay(); },
                        false,
                        {},
                        {},
                        {},
                        true,
                        false}) {}
        void Form_Load() override { machine_.start(); }
        void Form_Unload() override {
            note_("unloaded");
            machine_.abandon();
        }
        void showEvent(QShowEvent*) override { note_("shown"); }
        std::function<void(std::string)> note_;
        JobMachine machine_;
    };

    void note(std::string what) {
        if (what == "reset") what += state.JobFinished ? " (finished)" : " (not finished)";
        log.push_back({std::move(what), clock.elapsed()});
    }

    std::vector<std::string> events() const {
        std::vector<std::string> names;
        for (const auto& entry : log) names.push_back(entry.first);
        return names;
    }
    // When `what` was first noted, in milliseconds; -1 if never.
    qint64 at(const std::string& what) const {
        for (const auto& entry : log) {
            if (entry.first == what) return entry.second;
        }
        return -1;
    }

    QElapsedTimer clock;
    ScriptedDialogs dialogs;
    ProgramState state;
    std::unique_ptr<Forms> forms;
    std::vector<std::pair<std::string, qint64>> log;
};

TEST_P(JobMachineTest, StepsRunInTheOrderAndWithThePausesOfItsMethod) {
    const CompressionJob& job = *compressionJobForMethod(GetParam());
    const bool closedByMainWindow = job.window == FormId::Form5 || job.window == FormId::Form6;
    forms->load(job.window);
    EXPECT_EQ(events(), std::vector<std::string>{"shown"});  // the load returns at once
    ASSERT_TRUE(QTest::qWaitFor([&] { return at("reset (finished)") >= 0; }, 10000));
    QTest::qWait(100);

    const std::string caption = "Compression Progress 01.00% Completed";
    std::vector<std::string> expected;
    if (closedByMainWindow) {
        expected = {"shown",
                    "speed display on",
                    caption,
                    "speed display off",
                    "progress display reset",
                    "reset (finished)",
                    "speed cells normal"};
        EXPECT_GE(at("speed display on") - at("shown"), 990);  // the one-second wait
        EXPECT_LT(at("speed display on") - at("shown"), 1500);
        EXPECT_GE(at("speed display off") - at(caption), 1990);  // two seconds after the output
        EXPECT_LT(at("speed display off") - at(caption), 2600);
        EXPECT_TRUE(forms->isLoaded(job.window));  // the main window closes it
    } else {
        expected = {"shown", "speed display on", "reset (finished)", "unloaded"};
        if (job.followsTime) expected.insert(expected.begin() + 2, caption);
        EXPECT_GE(at("speed display on") - at("shown"), 1990);  // the two-second wait
        EXPECT_LT(at("speed display on") - at("shown"), 2600);
        EXPECT_EQ(state.OutputVideo, native("/videos/Compressed-clip.mp4"));  // named by the window
        EXPECT_EQ(state.SpeedLevel, -1);
        EXPECT_FALSE(forms->isLoaded(job.window));
    }
    EXPECT_EQ(events(), expected);
    // Played once, two seconds after the output ended.
    ASSERT_EQ(dialogs.shown().size(), 1u);
    EXPECT_EQ(dialogs.shown()[0].kind, "open externally");
    EXPECT_TRUE(state.OutputOpened);
}

TEST_P(JobMachineTest, AWindowUnloadedWhileItWaitsRunsNoFurtherStep) {
    const CompressionJob& job = *compressionJobForMethod(GetParam());
    forms->load(job.window);
    QTest::qWait(300);
    forms->unload(job.window);
    QTest::qWait(2500);
    EXPECT_EQ(events(), (std::vector<std::string>{"shown", "unloaded"}));
    EXPECT_EQ(forms->runningCommands().count(), 0u);
}

TEST_P(JobMachineTest, AFinishedJobStartsNoRun) {
    const CompressionJob& job = *compressionJobForMethod(GetParam());
    state.JobFinished = true;
    forms->load(job.window);
    QTest::qWait(2500);
    EXPECT_EQ(forms->runningCommands().count(), 0u);
    EXPECT_TRUE(dialogs.shown().empty());
}

INSTANTIATE_TEST_SUITE_P(EachMethod, JobMachineTest, ::testing::Values("TFS", "CRF", "ABR", "QP"),
                         [](const auto& info) { return std::string(info.param); });

}  // namespace
}  // namespace quillet
