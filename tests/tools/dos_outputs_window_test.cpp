#include <gtest/gtest.h>
#include <time.h>

#include <QCoreApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <chrono>
#include <filesystem>

#include "byte_pattern.h"
#include "runner_test_support.h"
#include "tools/event_loop_output_waiter.h"
#include "tools/running_commands.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

// Processor time this thread has used: a busy wait shows here, an idle one does not.
std::chrono::nanoseconds threadTime() {
    timespec now{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

class WindowRunnerTest : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_TRUE(noFinishedChildLeft()); }

    std::shared_ptr<EventLoopOutputWaiter> waiter = std::make_shared<EventLoopOutputWaiter>();
    DOSOutputs runner{waiter};
};

TEST_F(WindowRunnerTest, TenMegabytesArriveInOrderWhileAHandlerShowsAMessageBox) {
    const fs::path done = fs::temp_directory_path() / ("quillet-box-" + std::to_string(::getpid()));
    fs::remove(done);
    const std::size_t size = 10 << 20;
    bool writerFinishedWhileBoxOpen = false;
    std::string received;
    bool piecesFit = true;
    runner.ReceiveOutputs = [&](const std::string& piece) {
        piecesFit = piecesFit && piece.size() <= 256;
        received += piece;
        if (received.size() != piece.size() || piece.empty()) return;  // only the first piece
        QMessageBox box(QMessageBox::Warning, "Quillet", "Still compressing");
        QTimer poll;
        const auto deadline = Clock::now() + 20s;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            writerFinishedWhileBoxOpen = fs::exists(done);
            if (writerFinishedWhileBoxOpen || Clock::now() > deadline) box.done(0);
        });
        poll.start(20);
        box.exec();
    };
    const std::string result = runner.ExecuteCommand(CHILD_WRITE_BYTES " " + std::to_string(size) +
                                                     " stderr " + done.string());
    EXPECT_TRUE(writerFinishedWhileBoxOpen);
    EXPECT_TRUE(piecesFit);
    EXPECT_TRUE(result == children::patternBytes(0, size));
    EXPECT_TRUE(received == result);
    fs::remove(done);
}

TEST_F(WindowRunnerTest, TimersRunAndTheThreadIdlesWhileACommandRuns) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(20);
    const auto cpuBefore = threadTime();
    EXPECT_EQ(runner.ExecuteCommand(CHILD_TRICKLE " 100 1 1 1 1 1 1"), "abcdef");
    EXPECT_GE(ticks, 10);
    EXPECT_LT(threadTime() - cpuBefore, 150ms);
}

TEST_F(WindowRunnerTest, RunNestedInAnotherRunsWaitEndsAfterTheOuterOutputHasEnded) {
    // The outer output ends while the inner run waits in its own loop: both must still finish.
    DOSOutputs inner{waiter};
    std::string innerResult;
    QTimer::singleShot(20, [&] { innerResult = inner.ExecuteCommand(CHILD_TRICKLE " 100 1 1 1"); });
    EXPECT_EQ(runner.ExecuteCommand(CHILD_TRICKLE " 40 1 1"), "ab");
    EXPECT_EQ(innerResult, "abc");
}

TEST_F(WindowRunnerTest, RunCompletesWithoutSpinningWhenTheApplicationIsToldToQuit) {
    // A quitting application makes local loops return at once; the run must still wait idly.
    std::string result;
    std::chrono::nanoseconds cpu{};
    QTimer::singleShot(0, [&] {
        QTimer::singleShot(50, [] { QCoreApplication::exit(0); });
        const auto cpuBefore = threadTime();
        result = runner.ExecuteCommand(CHILD_TRICKLE " 100 1 1 1 1 1");
        cpu = threadTime() - cpuBefore;
    });
    QCoreApplication::exec();
    EXPECT_EQ(result, "abcde");
    EXPECT_LT(cpu, 150ms);
}

TEST_F(WindowRunnerTest, EndAllStopsPolitelyThenFirmlyAndReportsTheEnd) {
    RunningCommands commands(300ms);
    commands.adopt(runner);
    int ended = 0;
    commands.endAll([&] { ++ended; });
    EXPECT_EQ(ended, 1);  // nothing was running

    const struct {
        const char* child;
        std::chrono::milliseconds shortest;
        std::chrono::milliseconds longest;
    } cases[] = {
        {CHILD_QUIT_ON_Q, 0ms, 200ms},       // the polite stop is enough
        {CHILD_IGNORE_STOP, 250ms, 5000ms},  // ended after the grace period (a coarse timer)
    };
    for (const auto& c : cases) {
        ended = 0;
        Clock::time_point endAllCalled;
        QTimer::singleShot(50, [&] {
            EXPECT_EQ(commands.count(), 1u);
            endAllCalled = Clock::now();
            commands.endAll([&] { ++ended; });
        });
        runner.ExecuteCommand(c.child);
        const auto took = Clock::now() - endAllCalled;
        EXPECT_GE(took, c.shortest) << c.child;
        EXPECT_LT(took, c.longest) << c.child;
        EXPECT_EQ(commands.count(), 0u);
        EXPECT_TRUE(QTest::qWaitFor([&] { return ended > 0; }, 1000)) << c.child;
        QTest::qWait(400);  // no late second report, no kill of a later run
        EXPECT_EQ(ended, 1) << c.child;
    }
}

}  // namespace
}  // namespace quillet
