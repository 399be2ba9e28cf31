#include "tools/child_process.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <thread>

#include "tools/command_words.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// The descriptors open in a process; with `inheritableOnly`, those a child of it would receive.
std::set<int> descriptors(const std::string& process, bool inheritableOnly = false) {
    std::set<int> numbers;
    for (const auto& entry : fs::directory_iterator("/proc/" + process + "/fd")) {
        numbers.insert(std::stoi(entry.path().filename().string()));
    }
    // The listing's own descriptor is closed by now, so it fails this test as well.
    std::erase_if(numbers, [&](int fd) {
        const int flags = ::fcntl(fd, F_GETFD);
        return inheritableOnly && (flags < 0 || (flags & FD_CLOEXEC));
    });
    return numbers;
}

TEST(ChildLifetimeTest, ChildDiesWithTheProgramThatStartedItAndGetsNoneOfItsPipes) {
    // Orphans come to this test, which can then tell how and when they ended, and release them.
    ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    const auto parent =
        ChildProcess::start(CHILD_START_CHILD " " + quoteArgument(CHILD_START_CHILD));
    ASSERT_TRUE(parent);
    char buffer[64] = {};
    parent->read(buffer, sizeof buffer - 1);  // the process id, written at once
    const pid_t grandchild = std::atoi(buffer);
    ASSERT_GT(grandchild, 0) << buffer;
    // Besides its standard descriptors, only what this test itself inherited reaches it.
    std::set<int> expected = descriptors("self", true);
    expected.insert({0, 1, 2});
    EXPECT_EQ(descriptors(std::to_string(grandchild)), expected);

    parent->forceEnd();
    const auto killed = std::chrono::steady_clock::now();
    while (parent->read(buffer, sizeof buffer) > 0) {
    }
    parent->awaitExit();  // once the parent is released, its orphan is ours

    int status = 0;
    pid_t ended = 0;
    while ((ended = ::waitpid(grandchild, &status, WNOHANG)) == 0 &&
           std::chrono::steady_clock::now() - killed < 2s) {
        std::this_thread::sleep_for(10ms);
    }
    if (ended == 0) {
        ::kill(grandchild, SIGKILL);
        ::waitpid(grandchild, nullptr, 0);
        FAIL() << "the child outlived its parent";
    }
    ASSERT_EQ(ended, grandchild);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
}

TEST(ChildLifetimeTest, FileThatCannotBeExecutedFailsTheStartAndLeavesNoChild) {
    const fs::path file =
        fs::temp_directory_path() / ("quillet-text-" + std::to_string(::getpid()));
    std::ofstream(file) << "neither a program nor a script\n";
    fs::permissions(file, fs::perms::owner_all);
    EXPECT_FALSE(ChildProcess::start(quoteArgument(file.string()) + " -y"));
    fs::remove(file);
    // No child at all, ended or not: the one that failed to run the file was released at once.
    siginfo_t info{};
    const int looked = ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT);
    const int error = errno;
    EXPECT_EQ(looked, -1);
    EXPECT_EQ(error, ECHILD);
}

}  // namespace
}  // namespace quillet
