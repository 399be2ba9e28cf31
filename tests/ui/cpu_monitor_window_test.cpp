#include <gtest/gtest.h>

#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <deque>

#include "app/form3.h"
#include "app/forms.h"
#include "app/scripted_dialogs.h"
#include "main/form1.h"

namespace quillet {
namespace {

// Hands out the readings it is given, one per call; nothing once they run out.
class ScriptedSampler : public CpuSampler {
public:
    explicit ScriptedSampler(std::deque<std::optional<double>> readings, int& calls)
        : readings_(std::move(readings)), calls_(calls) {}
    std::optional<double> read() override {
        ++calls_;
        if (readings_.empty()) return std::nullopt;
        const std::optional<double> next = readings_.front();
        readings_.pop_front();
        return next;
    }

private:
    std::deque<std::optional<double>> readings_;
    int& calls_;
};

class CpuMonitorWindow : public ::testing::Test {
protected:
    CpuMonitorWindow() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        // Only the monitor under test writes the cell.
        forms.unload(FormId::Form3);
    }

    std::unique_ptr<Form3> loadMonitor(std::deque<std::optional<double>> readings) {
        auto monitor =
            std::make_unique<Form3>(forms, std::make_unique<ScriptedSampler>(readings, calls));
        monitor->Form_Load();
        return monitor;
    }
    std::string cell() const { return cpu->text().toStdString(); }

    ScriptedDialogs dialogs;
    ProgramState state;
    Forms forms{state, dialogs};
    QLabel* cpu = forms.form1().controls().status(StatusCell::Cpu);
    int calls = 0;
};

TEST_F(CpuMonitorWindow, LoadStaysHiddenStartsTheTimerAndReadsOnceEvenWhenSwitchedOff) {
    state.CpuMonitorEnabled = false;
    const std::unique_ptr<Form3> monitor = loadMonitor({5.5});
    EXPECT_FALSE(monitor->isVisible());
    EXPECT_EQ(monitor->windowTitle(), "CPU usage");
    const auto* timer = monitor->findChild<QTimer*>("Timer1");
    ASSERT_TRUE(timer);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 2500);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(cell(), "CPU: 05.50%");
}

TEST_F(CpuMonitorWindow, TicksReadOnlyWhileSwitchedOnAndAFailedReadingKeepsTheCell) {
    const std::unique_ptr<Form3> monitor = loadMonitor({50, std::nullopt, 7.25, 99});
    EXPECT_EQ(cell(), "CPU: 50.00%");
    monitor->Timer1_Timer();  // fails
    EXPECT_EQ(cell(), "CPU: 50.00%");

    state.CpuMonitorEnabled = false;
    cpu->setText("CPU: 00.00%");
    monitor->Timer1_Timer();
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(cell(), "CPU: 00.00%");

    // The timer itself drives the readings.
    state.CpuMonitorEnabled = true;
    monitor->findChild<QTimer*>("Timer1")->setInterval(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell() == "CPU: 07.25%"; }, 2000)) << cell();
}

TEST_F(CpuMonitorWindow, WithoutTheMainWindowAReadingWritesNothingAndLoadsNothing) {
    forms.unload(FormId::Form1);
    const std::unique_ptr<Form3> monitor = loadMonitor({12});
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(forms.isLoaded(FormId::Form1));
}

TEST_F(CpuMonitorWindow, RegistryLoadsTheMonitorWithTheSystemSampler) {
    QPointer<Form3> monitor = &forms.form3();
    EXPECT_TRUE(forms.isLoaded(FormId::Form3));
    EXPECT_FALSE(monitor->isVisible());
    // The first reading compares with boot, so a figure is there at once.
    EXPECT_TRUE(cell().starts_with("CPU: ") && cell().ends_with("%") && cell()[6] != 'a') << cell();
    forms.unload(FormId::Form3);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(monitor.isNull());
}

}  // namespace
}  // namespace quillet
