#include "tools/dos_outputs.h"

#include <gtest/gtest.h>

#include <atomic>
#include <filesystem>

#include "byte_pattern.h"
#include "children_left.h"
#include "runner_test_support.h"
#include "tools/child_process.h"
#include "tools/command_words.h"
#include "under_wine.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Pieces = std::vector<std::string>;

class DOSOutputsTest : public ::testing::Test {
protected:
    void TearDown() override { EXPECT_TRUE(children::noChildLeft(children::Left::Unreleased)); }

    DOSOutputs runner;
    PieceRecorder recorder{runner};
};

// What child_record_args prints for these arguments (the program first).
std::string record(const Pieces& words) {
    std::string text = std::to_string(words.size()) + "\n";
    for (const std::string& word : words) text += "[" + word + "]\n";
    return text;
}

TEST_F(DOSOutputsTest, OutputArrivesInPiecesOfAtMost256BytesThenOneEmptyPiece) {
    // Standard error alone, and both streams taking turns, arrive like standard output, in order.
    for (const std::string stream : {"stdout", "stderr", "both"}) {
        recorder.pieces.clear();
        const std::string all = runner.ExecuteCommand(CHILD_WRITE_BYTES " 600 " + stream);
        EXPECT_EQ(all, children::patternBytes(0, 600)) << stream;
        EXPECT_EQ(runner.Outputs(), all);
        ASSERT_GE(recorder.pieces.size(), 4u);
        EXPECT_EQ(recorder.pieces.back(), "");
        std::string joined;
        for (std::size_t i = 0; i + 1 < recorder.pieces.size(); ++i) {
            EXPECT_GT(recorder.pieces[i].size(), 0u);
            EXPECT_LE(recorder.pieces[i].size(), 256u);
            joined += recorder.pieces[i];
        }
        EXPECT_EQ(joined, all);
    }
}

TEST_F(DOSOutputsTest, EachPieceHoldsExactlyTheBytesOfItsRead) {
    runner.ExecuteCommand(CHILD_TRICKLE " 150 200 10");
    EXPECT_EQ(recorder.pieces, (Pieces{std::string(200, 'a'), std::string(10, 'b'), ""}));
    recorder.pieces.clear();
    EXPECT_EQ(runner.ExecuteCommand(CHILD_SILENT), "");
    EXPECT_EQ(recorder.pieces, Pieces{""});
}

TEST_F(DOSOutputsTest, CommandThatCannotStartReturnsNothingAndKeepsThePreviousOutputs) {
    EXPECT_EQ(runner.ExecuteCommand(), "");  // nothing stored yet
    runner.ExecuteCommand(CHILD_TRICKLE " 0 3");
    recorder.pieces.clear();
    for (const std::string line : {"/no/such/program -y", "   ", "\"\" -y", "no-such-program"}) {
        EXPECT_EQ(runner.ExecuteCommand(line), "") << line;
        EXPECT_EQ(runner.CommandLine(), line);
    }
    EXPECT_TRUE(recorder.pieces.empty());
    EXPECT_EQ(runner.Outputs(), "aaa");
}

TEST_F(DOSOutputsTest, EmptyArgumentRerunsTheStoredCommandLine) {
    runner.setCommandLine(CHILD_RECORD_ARGS " x");
    EXPECT_EQ(runner.ExecuteCommand(), record({CHILD_RECORD_ARGS, "x"}));
    EXPECT_EQ(runner.ExecuteCommand(""), record({CHILD_RECORD_ARGS, "x"}));
    EXPECT_EQ(runner.CommandLine(), CHILD_RECORD_ARGS " x");
}

TEST_F(DOSOutputsTest, ArgumentsArriveAsWindowsWouldSplitThem) {
    EXPECT_EQ(runner.ExecuteCommand(CHILD_RECORD_ARGS R"( -i "a b.mp4"  -y "unbalanced)"),
              record({CHILD_RECORD_ARGS, "-i", "a b.mp4", "-y", "unbalanced"}));
    // A file name holding quotes stays one argument: it cannot add arguments of its own.
    const std::string name = R"(clip" -y "x\" .mp4)";
    EXPECT_EQ(runner.ExecuteCommand(CHILD_RECORD_ARGS " -i " + quoteArgument(name) + " -f"),
              record({CHILD_RECORD_ARGS, "-i", name, "-f"}));
}

TEST(ChildArguments, EachArgumentOfAListArrivesWholeWhateverItHolds) {
    const Pieces words = {CHILD_RECORD_ARGS, "-i", "a b.mp4",     R"(say "hi".mp4)", "-y",
                          "line\nbreak",     "",   R"(ends in\)", R"(\")",           "日本 é.mp4",
                          "%PATH% $HOME",    "'x'"};
    const auto child = ChildProcess::start(ProgramCall{CHILD_RECORD_ARGS, words});
    ASSERT_TRUE(child);
    std::string recorded;
    char buffer[256];
    while (const std::size_t count = child->read(buffer, sizeof buffer)) {
        recorded.append(buffer, count);
    }
    EXPECT_EQ(child->awaitExit(), 0);
    EXPECT_EQ(recorded, record(words));
    // Its exit code is told: child_trickle without its arguments ends with 2.
    const auto failing = ChildProcess::start(ProgramCall{CHILD_TRICKLE, {CHILD_TRICKLE}});
    ASSERT_TRUE(failing);
    while (failing->read(buffer, sizeof buffer) > 0) {
    }
    EXPECT_EQ(failing->awaitExit(), 2);
}

TEST_F(DOSOutputsTest, UnquotedProgramPathWithBlanksIsFound) {
    const fs::path top = fs::temp_directory_path() / ("quillet-" + std::to_string(::getpid()));
    const fs::path folder = top / "dir with blanks";
    fs::create_directories(folder);
#ifdef _WIN32
    // The system finds the program by trying longer and longer prefixes of the line, yet the
    // program itself splits its unquoted name at the blanks.
    const fs::path program = folder / "record args.exe";
    const Pieces words = {
        (top / "dir").string(), "with", R"(blanks\record)", "args.exe", "one", "two three"};
#else
    const fs::path program = folder / "record args";
    const Pieces words = {program.string(), "one", "two three"};
#endif
    fs::copy_file(CHILD_RECORD_ARGS, program);
    const std::string recorded = runner.ExecuteCommand(program.string() + " one \"two three\"");
    fs::remove_all(top);
    EXPECT_TRUE(recorded.ends_with("[one]\n[two three]\n")) << recorded;  // found and started
    if (underWine()) {
        GTEST_SKIP() << "wine quotes the program path it found in the line, so the program gets "
                        "its name whole";
    }
    EXPECT_EQ(recorded, record(words));
}

TEST_F(DOSOutputsTest, StopChildSendsQOnTheChildsInput) {
    runner.ReceiveOutputs = [&](const std::string& piece) {
        if (piece == "ready\n") runner.StopChild();
    };
    EXPECT_EQ(runner.ExecuteCommand(CHILD_QUIT_ON_Q), "ready\nbye\n");
}

TEST_F(DOSOutputsTest, KillChildEndsAChildThatIgnoresThePoliteStop) {
    std::thread killer;
    runner.ReceiveOutputs = [&](const std::string& piece) {
        if (piece != "ready\n") return;
        runner.StopChild();
        killer = std::thread([this] {
            std::this_thread::sleep_for(300ms);
            runner.KillChild();
        });
    };
    const auto started = Clock::now();
    EXPECT_EQ(runner.ExecuteCommand(CHILD_IGNORE_STOP), "ready\n");
    EXPECT_GE(Clock::now() - started, 300ms);  // the polite stop alone did not end it
    EXPECT_LT(Clock::now() - started, 10s);
    killer.join();
}

TEST_F(DOSOutputsTest, ChildControlOutsideARunDoesNothing) {
    runner.StopChild();
    runner.KillChild();
    // Straight after a run the child may have gone unreleased: nothing sent to it may hurt us.
    for (int i = 0; i < 20; ++i) {
        runner.ExecuteCommand(CHILD_SILENT);
        runner.StopChild();
        runner.KillChild();
    }
}

TEST_F(DOSOutputsTest, RunEndsWithTheOutputAndTheLingeringChildIsReleasedLater) {
    if (underWine()) {
        GTEST_SKIP() << "wine's console host keeps a child's output open until the child ends";
    }
    const auto started = Clock::now();
    EXPECT_EQ(runner.ExecuteCommand(CHILD_LINGER " 500"), "");
    EXPECT_LT(Clock::now() - started, 400ms);
    std::this_thread::sleep_for(600ms);  // the child ends meanwhile; TearDown looks for it
}

TEST_F(DOSOutputsTest, HandlerRunningTheSameRunnerAgainGetsNothing) {
    std::string nested = "not called";
    runner.ReceiveOutputs = [&](const std::string& piece) {
        if (!piece.empty()) nested = runner.ExecuteCommand(CHILD_SILENT);
    };
    EXPECT_EQ(runner.ExecuteCommand(CHILD_TRICKLE " 0 5"), "aaaaa");
    EXPECT_EQ(nested, "");
}

TEST_F(DOSOutputsTest, ConcurrentRunnersDoNotHoldUpEachOthersOutput) {
    // Were the pipes inherited by other children, a short run would last as long as the long
    // child started beside it (30 s).
    DOSOutputs longRunner;
    std::atomic<bool> shortRunsDone = false;
    std::thread longRun([&] {
        longRunner.ReceiveOutputs = [&](const std::string&) {
            while (!shortRunsDone) std::this_thread::sleep_for(5ms);
            longRunner.KillChild();
        };
        longRunner.ExecuteCommand(CHILD_IGNORE_STOP);
    });
    const auto started = Clock::now();
    for (int i = 0; i < 30; ++i) runner.ExecuteCommand(CHILD_SILENT);
    EXPECT_LT(Clock::now() - started, 20s);
    shortRunsDone = true;
    longRun.join();
}

}  // namespace
}  // namespace quillet
