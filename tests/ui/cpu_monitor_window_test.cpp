#include <gtest/gtest.h>

#include <QLabel>
#include <QLocale>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include "app/form3.h"
#include "app/forms.h"
#include "app/scripted_dialogs.h"
#include "main/form1.h"
#include "program_windows.h"
#include "under_wine.h"

namespace quillet {
namespace {

// Hands out the given readings one per call, then fails.
struct ScriptedSampler : CpuSampler {
    ScriptedSampler(std::vector<std::optional<double>> r, int& c)
        : readings(std::move(r)), calls(c) {}
    std::optional<double> read() override {
        const auto index = static_cast<std::size_t>(calls++);
        return index < readings.size() ? readings[index] : std::nullopt;
    }
    std::vector<std::optional<double>> readings;
    int& calls;
};

class CpuMonitorWindow : public ::testing::Test {
protected:
    CpuMonitorWindow() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        forms.unload(FormId::Form3);  // only the monitor under test writes the cell
    }

    std::unique_ptr<Form3> loadMonitor(std::vector<std::optional<double>> readings) {
        auto monitor =
            std::make_unique<Form3>(forms, std::make_unique<ScriptedSampler>(readings, calls));
        monitor->Form_Load();
        return monitor;
    }
    std::string cell() const { return cpu->text().toStdString(); }

    ScriptedDialogs dialogs;
    ProgramState state;
    ProgramForms forms{state, dialogs};
    QLabel* cpu = forms.get<Form1>().controls().status(StatusCell::Cpu);
    int calls = 0;
};

TEST_F(CpuMonitorWindow, ReadsOnceAtLoadThenOnEachTickWhileSwitchedOn) {
    state.CpuMonitorEnabled = false;
    const std::unique_ptr<Form3> monitor = loadMonitor({5.5, std::nullopt, 7.25});
    EXPECT_FALSE(monitor->isVisible());
    EXPECT_EQ(monitor->windowTitle(), "CPU usage");
    auto* timer = monitor->findChild<QTimer*>("Timer1");
    ASSERT_TRUE(timer);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 2500);
    EXPECT_EQ(cell(), "CPU: 05.50%");

    cpu->setText("CPU: 00.00%");
    monitor->Timer1_Timer();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(cell(), "CPU: 00.00%");

    state.CpuMonitorEnabled = true;
    monitor->Timer1_Timer();  // a failed reading
    EXPECT_EQ(cell(), "CPU: 00.00%");
    timer->setInterval(10);
    EXPECT_TRUE(QTest::qWaitFor([&] { return cell() == "CPU: 07.25%"; }, 2000)) << cell();
}

TEST_F(CpuMonitorWindow, AReadingNeverBringsBackAnUnloadedMainWindow) {
    forms.unload(FormId::Form1);
    const std::unique_ptr<Form3> monitor = loadMonitor({12});
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(forms.isLoaded(FormId::Form1));
}

TEST_F(CpuMonitorWindow, RegistryLoadsTheMonitorWithTheSystemSampler) {
    cpu->setText("CPU: --");
    QPointer<Form3> monitor = &forms.get<Form3>();
    EXPECT_FALSE(monitor->isVisible());
    if (underWine()) {
        // Wine offers no processor counter: no reading, so the cell keeps its text.
        EXPECT_EQ(cell(), "CPU: --");
    } else {
        // The first reading compares with boot, so a figure is there at once.
        static const QRegularExpression reading(R"(^CPU: \d\d+\.\d\d%$)");
        EXPECT_TRUE(reading.match(cpu->text()).hasMatch()) << cell();
    }
    forms.unload(FormId::Form3);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(monitor.isNull());
}

}  // namespace
}  // namespace quillet
