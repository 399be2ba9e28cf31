#include "tools/child_process.h"

#include <gtest/gtest.h>

#ifdef _WIN32
#include <process.h>
#else
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <set>
#endif

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "children_left.h"
#include "tools/command_words.h"
#include "tools/windows_api.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Starts a child that starts a sleeping child of its own, the way the program starts a tool; gives
// the sleeper's process id (0 when that failed).
std::shared_ptr<ChildProcess> startParentOfSleeper(unsigned long& sleeper) {
    auto parent = ChildProcess::start(CHILD_START_CHILD " " + quoteArgument(CHILD_START_CHILD));
    char buffer[64] = {};
    if (parent) parent->read(buffer, sizeof buffer - 1);  // the process id, written at once
    sleeper = std::strtoul(buffer, nullptr, 10);
    return parent;
}

// Ends the parent and waits until the system has released it.
void endParent(ChildProcess& parent) {
    parent.forceEnd();
    char buffer[64];
    while (parent.read(buffer, sizeof buffer) > 0) {
    }
    parent.awaitExit();
}

#ifdef _WIN32

TEST(ChildLifetimeTest, ChildDiesWithTheProgramThatStartedIt) {
    unsigned long sleeper = 0;
    const auto parent = startParentOfSleeper(sleeper);
    ASSERT_TRUE(parent);
    ASSERT_GT(sleeper, 0u);
    // Held from before the parent goes, so that the id cannot pass to another process meanwhile.
    const HANDLE child =
        ::OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, static_cast<DWORD>(sleeper));
    ASSERT_TRUE(child);
    endParent(*parent);
    const bool ended = ::WaitForSingleObject(child, 2000) == WAIT_OBJECT_0;
    if (!ended) ::TerminateProcess(child, 1);
    ::CloseHandle(child);
    EXPECT_TRUE(ended) << "the child outlived its parent";
}

#else

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
    unsigned long sleeper = 0;
    const auto parent = startParentOfSleeper(sleeper);
    ASSERT_TRUE(parent);
    const auto grandchild = static_cast<pid_t>(sleeper);
    ASSERT_GT(grandchild, 0);
    // Besides its standard descriptors, only what this test itself inherited reaches it.
    std::set<int> expected = descriptors("self", true);
    expected.insert({0, 1, 2});
    EXPECT_EQ(descriptors(std::to_string(grandchild)), expected);

    const auto killed = std::chrono::steady_clock::now();
    endParent(*parent);  // once the parent is released, its orphan is ours

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

#endif

TEST(ChildLifetimeTest, FileThatCannotBeExecutedFailsTheStartAndLeavesNoChild) {
#ifdef _WIN32
    const char* kProgramSuffix = ".exe";
#else
    const char* kProgramSuffix = "";
#endif
    const fs::path file =
        fs::temp_directory_path() / ("quillet-text-" + std::to_string(::getpid()) + kProgramSuffix);
    std::ofstream(file) << "neither a program nor a script\n";
    fs::permissions(file, fs::perms::owner_all);
    EXPECT_FALSE(ChildProcess::start(quoteArgument(file.string()) + " -y"));
    fs::remove(file);
    // No child at all, ended or not: the one that failed to run the file was released at once.
    EXPECT_TRUE(children::noChildLeft(children::Left::Any));
}

}  // namespace
}  // namespace quillet
