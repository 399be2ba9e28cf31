// The companion as a script uses it: a batch with a broken file among good ones, and a stop
// in the middle of a job, a command line refused before any job.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>
#include <utility>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

class CliBatch : public ::testing::Test {
protected:
    void SetUp() override {
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void TearDown() override {
        fs::remove_all(folder);
        fs::remove(report);
    }

    // An H.264 and AAC clip, or VP8 and Opus for a name ending in ".webm".
    void makeClip(const std::string& name, int seconds, const std::string& size = "320x240") {
        const std::string codecs = name.ends_with(".webm")
                                       ? "-c:v libvpx -deadline realtime -c:a libopus"
                                       : "-c:v libx264 -preset ultrafast -c:a aac";
        const std::string command = "ffmpeg -v error -f lavfi -i testsrc2=size=" + size +
                                    ":rate=25:duration=" + std::to_string(seconds) +
                                    " -f lavfi -i sine=duration=" + std::to_string(seconds) + " " +
                                    codecs + " -shortest '" + (folder / name).string() + "'";
        ASSERT_EQ(std::system(command.c_str()), 0);
    }

    // Starts the companion with its output in a file; gives its process id.
    pid_t start(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), QUILLET_CLI);
        std::vector<char*> argv;
        for (std::string& argument : arguments) argv.push_back(argument.data());
        argv.push_back(nullptr);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, report.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0644);
        posix_spawn_file_actions_adddup2(&actions, 1, 2);
        pid_t pid = 0;
        EXPECT_EQ(posix_spawn(&pid, QUILLET_CLI, &actions, nullptr, argv.data(), environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        return pid;
    }
    int exitStatus(pid_t pid) {
        int status = 0;
        waitpid(pid, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    std::string reported() const {
        std::ostringstream text;
        text << std::ifstream(report).rdbuf();
        return text.str();
    }

    // A folder and a report per test and per run, as tests and checkouts run side by side.
    const std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name() +
                             std::string("-") + std::to_string(getpid());
    const fs::path folder = fs::temp_directory_path() / ("quillet-cli-" + name);
    const fs::path report = fs::temp_directory_path() / ("quillet-cli-" + name + ".txt");
};

TEST_F(CliBatch, ABrokenFileFailsAloneAndTheRestIsDone) {
    makeClip("one.mp4", 1);
    makeClip("two -y.mp4", 1);
    std::ofstream(folder / "broken.mp4") << "not a video";
    EXPECT_EQ(exitStatus(start({"compress", "--crf", "40", folder.string()})), 1);
    EXPECT_TRUE(fs::file_size(folder / "Compressed-one.mp4") > 0);
    EXPECT_TRUE(fs::file_size(folder / "Compressed-two -y.mp4") > 0);
    EXPECT_FALSE(fs::exists(folder / "Compressed-broken.mp4"));
    const std::string text = reported();
    EXPECT_NE(text.find("failed: " + (folder / "broken.mp4").string()), std::string::npos) << text;
    EXPECT_NE(text.find("2 done, 0 skipped, 1 failed"), std::string::npos) << text;
    // A failed run leaves the output it was to replace as it was, and no partial one: ffmpeg
    // opens the output, then finds that WebM holds no H.265.
    makeClip("three.webm", 1);
    std::ofstream(folder / "Compressed-three.webm") << "old";
    EXPECT_EQ(exitStatus(start({"compress", "--overwrite", (folder / "three.webm").string()})), 1);
    EXPECT_EQ(fs::file_size(folder / "Compressed-three.webm"), 3u);
    EXPECT_FALSE(fs::exists(folder / "Compressed-three.quillet-partial.webm"));
    EXPECT_NE(reported().find("Only VP8 or VP9"), std::string::npos) << reported();
    // Again: both outputs exist, so both are skipped.
    EXPECT_EQ(exitStatus(start(
                  {"compress", (folder / "one.mp4").string(), (folder / "two -y.mp4").string()})),
              0);
    EXPECT_NE(reported().find("0 done, 2 skipped, 0 failed"), std::string::npos) << reported();
}

TEST_F(CliBatch, ATargetTheAudioAloneExceedsIsRefusedBeforeFfmpegRuns) {
    makeClip("one.mp4", 2);
    EXPECT_EQ(exitStatus(start({"compress", "--method", "tfs", "--target-mb", "0.01",
                                (folder / "one.mp4").string()})),
              1);
    EXPECT_NE(reported().find("too small: the audio with the least video needs"), std::string::npos)
        << reported();
    EXPECT_FALSE(fs::exists(folder / "Compressed-one.mp4"));
}

TEST_F(CliBatch, ARefusedCommandLineRunsNoJob) {
    makeClip("one.mp4", 1);
    const std::string clip = (folder / "one.mp4").string();
    const std::pair<std::vector<std::string>, std::string> refused[] = {
        {{"compress", "--target-mb", "5", "--method", "crf", clip},
         "--target-mb needs --method tfs"},
        {{"compress", "--bitrate", "1M", "--method", "qp", clip}, "--bitrate needs --method abr"},
        {{"compress", "--preset", "superduper", clip}, "--preset takes ultrafast,"},
        {{"mp3", "--sample-rate", "12345", clip}, "--sample-rate takes, for MP3 audio"},
        {{"scale", "--overwrite", "--rename", clip}, "--overwrite and --rename cannot"},
        {{"fps", "--fps", "24", "--height", "480", clip}, "--height is for scale, not fps"},
    };
    for (const auto& [arguments, problem] : refused) {
        EXPECT_EQ(exitStatus(start(arguments)), 2) << problem;
        EXPECT_NE(reported().find("quillet-cli: " + problem), std::string::npos) << reported();
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1)
            << problem << ": only the source is there";
    }
}

TEST_F(CliBatch, VersionIsTheProjects) {
    EXPECT_EQ(exitStatus(start({"--version"})), 0);
    EXPECT_EQ(reported(), "quillet-cli " QUILLET_VERSION "\n");
}

TEST_F(CliBatch, InterruptStopsFfmpegAndRemovesThePartialOutput) {
    makeClip("long.mp4", 120);
    const pid_t cli = start({"compress", "--json", "--preset", "slow", folder.string()});
    // The job samples the source first, which on a busy machine takes a while.
    const auto deadline = std::chrono::steady_clock::now() + 90s;
    while (reported().find("\"progress\"") == std::string::npos &&
           std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(50ms);
    }
    ASSERT_NE(reported().find("\"progress\""), std::string::npos) << reported();
    kill(cli, SIGINT);
    // Ended well before the two minutes of video could have been encoded.
    const auto running = [cli] {
        siginfo_t info{};  // looked at, not released
        waitid(P_PID, static_cast<id_t>(cli), &info, WEXITED | WNOHANG | WNOWAIT);
        return info.si_pid == 0;
    };
    const auto stopBy = std::chrono::steady_clock::now() + 10s;
    while (running() && std::chrono::steady_clock::now() < stopBy) {
        std::this_thread::sleep_for(50ms);
    }
    if (running()) {
        kill(cli, SIGKILL);
        ADD_FAILURE() << "the companion did not stop";
    }
    EXPECT_EQ(exitStatus(cli), 130);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1)
        << "only the source is left";
    EXPECT_NE(reported().find("\"status\":\"stopped\""), std::string::npos) << reported();
    // No ffmpeg is left writing the output (the brackets keep the shell's own line from matching).
    const std::string ffmpegLeft = "pgrep -f '" + folder.string() + "/[C]ompressed-long'";
    EXPECT_NE(std::system(ffmpegLeft.c_str()), 0);
}

// Run again over the same folder, the companion takes neither its outputs nor their outputs.
TEST_F(CliBatch, ASecondAndAThirdRunCompressNothingNew) {
    makeClip("one.mp4", 1);
    makeClip("two é.mkv", 1);
    EXPECT_EQ(exitStatus(start({"compress", "--crf", "40", folder.string()})), 0);
    for (int run = 2; run <= 3; ++run) {
        EXPECT_EQ(exitStatus(start({"compress", "--crf", "40", folder.string()})), 0);
        EXPECT_NE(reported().find("0 done, 4 skipped, 0 failed"), std::string::npos) << reported();
        EXPECT_NE(reported().find("Compressed-two é.mkv: the output of two é.mkv"),
                  std::string::npos)
            << reported();
        EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 4);
    }
}

// A run killed in its two passes leaves its partial output and its working folder; the next run
// over the folder removes them and says so.
TEST_F(CliBatch, WhatAKilledRunLeftIsRemovedByTheNext) {
    makeClip("long.mp4", 60);
    const fs::path temporary = folder / "temporary";
    fs::create_directories(temporary);
    const char* const before = std::getenv("TMPDIR");
    const std::string restore = before ? before : "";
    ::setenv("TMPDIR", temporary.c_str(), 1);
    const pid_t killed = start({"compress", "--json", "--method", "tfs", "--target-mb", "1",
                                "--two-pass", "--preset", "slow", folder.string()});
    // Killed in the second pass, which writes the partial output.
    const auto deadline = std::chrono::steady_clock::now() + 90s;
    while (reported().find("\"pass\":2") == std::string::npos &&
           std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(50ms);
    }
    std::this_thread::sleep_for(500ms);
    kill(killed, SIGKILL);
    exitStatus(killed);
    const std::string mark = ".quillet-partial-" + std::to_string(killed);
    EXPECT_TRUE(fs::exists(folder / ("Compressed-long" + mark + ".mp4")));
    EXPECT_EQ(std::distance(fs::directory_iterator(temporary), fs::directory_iterator()), 1);

    EXPECT_EQ(
        exitStatus(start({"compress", "--crf", "51", "--preset", "ultrafast", folder.string()})),
        0);
    const std::string said = reported();
    EXPECT_NE(said.find("removed: " + (folder / ("Compressed-long" + mark + ".mp4")).string()),
              std::string::npos)
        << said;
    EXPECT_NE(said.find("removed: " + temporary.string() + "/quillet-cli-work-passes-" +
                        std::to_string(killed)),
              std::string::npos)
        << said;
    EXPECT_NE(said.find("1 done, 0 skipped"), std::string::npos) << said;
    EXPECT_TRUE(fs::is_empty(temporary));
    if (before) {
        ::setenv("TMPDIR", restore.c_str(), 1);
    } else {
        ::unsetenv("TMPDIR");
    }
}

}  // namespace

// The first pass runs at the fastest preset; the encoder takes its statistics for the second pass
// only if their picture groups have the shape the job's preset gives them; one preset of each
// shape.
TEST_F(CliBatch, EveryPresetsSecondPassTakesTheFastFirstPass) {
    makeClip("one.mp4", 1, "64x64");
    for (const char* preset : {"ultrafast", "superfast", "veryfast", "slower"}) {
        const pid_t pid = start({"compress", "--method", "tfs", "--target-mb", "0.1", "--two-pass",
                                 "--preset", preset, "--overwrite", "--output-dir",
                                 (folder / preset).string(), (folder / "one.mp4").string()});
        EXPECT_EQ(exitStatus(pid), 0) << preset << ":\n" << reported();
    }
}

// A forecast encodes samples and foretells the output, and leaves nothing behind: no output, no
// partial file, no samples in the temporary folder.
TEST_F(CliBatch, EstimateForetellsAndWritesNothing) {
    makeClip("one.mp4", 8);
    // A temporary folder of its own, which tests running beside it do not use.
    const fs::path temporary = folder / "temporary";
    fs::create_directories(temporary);
    ::setenv("TMPDIR", temporary.c_str(), 1);
    EXPECT_EQ(exitStatus(start({"estimate", "--json", "--crf", "28", "--output-dir",
                                (folder / "out").string(), (folder / "one.mp4").string()})),
              0);
    const std::string said = reported();
    EXPECT_NE(said.find("\"predicted_bytes\":"), std::string::npos) << said;
    EXPECT_NE(said.find("\"predicted_seconds\":"), std::string::npos) << said;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 2);
    EXPECT_TRUE(fs::is_empty(temporary));
    // Two passes land just under the target, whatever the samples say.
    EXPECT_EQ(exitStatus(start({"estimate", "--method", "tfs", "--target-mb", "1", "--two-pass",
                                (folder / "one.mp4").string()})),
              0);
    EXPECT_NE(reported().find("about 1.0 MB"), std::string::npos) << reported();
}
