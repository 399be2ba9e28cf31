// The child process on POSIX systems: posix_spawn without a shell, standard output and standard
// error both on one pipe, standard input on a pipe of our own.
#ifndef _WIN32

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <utility>
#include <vector>

#include "tools/child_process.h"
#include "tools/program_lookup.h"

extern char** environ;

namespace quillet {

namespace {

// A file descriptor, closed when it goes.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int fd) : fd_(fd) {}
    Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        reset(std::exchange(other.fd_, -1));
        return *this;
    }
    ~Descriptor() { reset(); }
    int get() const { return fd_; }
    void reset(int fd = -1) {
        if (fd_ >= 0) ::close(fd_);
        fd_ = fd;
    }

private:
    int fd_ = -1;
};

// Both ends of a new pipe, close-on-exec so that no other child ever inherits them, and numbered
// above the standard descriptors so that placing them on 0, 1 and 2 in the child never overwrites
// one with another (possible when the program runs with a standard descriptor closed).
bool makePipe(Descriptor& readEnd, Descriptor& writeEnd) {
    int fds[2];
    if (::pipe2(fds, O_CLOEXEC) != 0) return false;
    Descriptor ends[2] = {Descriptor(fds[0]), Descriptor(fds[1])};
    for (Descriptor& end : ends) {
        if (end.get() > STDERR_FILENO) continue;
        const int moved = ::fcntl(end.get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
        if (moved < 0) return false;
        end.reset(moved);
    }
    readEnd = std::move(ends[0]);
    writeEnd = std::move(ends[1]);
    return true;
}

bool isExecutableFile(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

// Starts the program with `input` as its standard input and `output` as both standard output and
// standard error. The child starts with no blocked signals and the default handling of the signals
// it is ended with, whatever this program has set for itself. Returns -1 when it cannot start.
pid_t spawn(const ProgramCall& call, int input, int output) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&actions, output, STDERR_FILENO);

    sigset_t noSignals;
    sigset_t defaultSignals;
    sigemptyset(&noSignals);
    sigemptyset(&defaultSignals);
    for (const int number : {SIGPIPE, SIGTERM, SIGINT}) sigaddset(&defaultSignals, number);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigmask(&attributes, &noSignals);
    posix_spawnattr_setsigdefault(&attributes, &defaultSignals);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

    std::vector<char*> argv;
    for (const std::string& argument : call.arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);

    pid_t pid = -1;
    const int failed =
        ::posix_spawn(&pid, call.file.c_str(), &actions, &attributes, argv.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return failed == 0 ? pid : -1;
}

// Writes one byte without letting a child that has already gone end this program with SIGPIPE.
void writeByteQuietly(int fd, char byte) {
    sigset_t brokenPipe;
    sigset_t previous;
    sigemptyset(&brokenPipe);
    sigaddset(&brokenPipe, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &brokenPipe, &previous);
    if (::write(fd, &byte, 1) < 0 && errno == EPIPE) {
        const timespec now{};
        ::sigtimedwait(&brokenPipe, nullptr, &now);  // take back the signal this write raised
    }
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
}

}  // namespace

struct ChildProcess::Native {
    pid_t pid = -1;
    Descriptor output;      // our end of the child's standard output and standard error
    Descriptor input;       // our end of the child's standard input, never blocking
    std::mutex mutex;       // orders signals against the release of the process id
    bool released = false;  // the process id may name another process now
};

std::shared_ptr<ChildProcess> ChildProcess::start(const std::string& commandLine) {
    const char* searchPath = std::getenv("PATH");
    const auto call =
        resolveProgram(commandLine, searchPath ? searchPath : "/usr/bin:/bin", isExecutableFile);
    if (!call) return nullptr;

    auto native = std::make_unique<Native>();
    Descriptor childOutput;
    Descriptor childInput;
    if (!makePipe(native->output, childOutput) || !makePipe(childInput, native->input)) {
        return nullptr;
    }
    // A stop request must never hang on a child that does not read its input.
    ::fcntl(native->input.get(), F_SETFL, O_NONBLOCK);

    native->pid = spawn(*call, childInput.get(), childOutput.get());
    // Our copies of the child's ends go at once, so that the output ends when the child's does.
    childOutput.reset();
    childInput.reset();
    if (native->pid < 0) return nullptr;
    return std::shared_ptr<ChildProcess>(new ChildProcess(std::move(native)));
}

ChildProcess::ChildProcess(std::unique_ptr<Native> native) : native_(std::move(native)) {}

ChildProcess::~ChildProcess() = default;

std::size_t ChildProcess::read(char* buffer, std::size_t capacity) {
    for (;;) {
        const ssize_t count = ::read(native_->output.get(), buffer, capacity);
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) return 0;
    }
}

void ChildProcess::awaitExit() {
    {
        // A child that lingers after its output has ended may be waiting for its input to end.
        std::lock_guard lock(native_->mutex);
        native_->input.reset();
    }
    // Wait without releasing the process id, then mark it released and release it, so that a
    // signal can never reach a process that has taken over the id.
    siginfo_t info{};
    while (::waitid(P_PID, static_cast<id_t>(native_->pid), &info, WEXITED | WNOWAIT) != 0 &&
           errno == EINTR) {
    }
    std::lock_guard lock(native_->mutex);
    native_->released = true;
    while (::waitpid(native_->pid, nullptr, 0) < 0 && errno == EINTR) {
    }
}

void ChildProcess::askToStop() {
    std::lock_guard lock(native_->mutex);
    if (native_->released) return;
    if (native_->input.get() >= 0) writeByteQuietly(native_->input.get(), 'q');
    ::kill(native_->pid, SIGTERM);
}

void ChildProcess::forceEnd() {
    std::lock_guard lock(native_->mutex);
    if (!native_->released) ::kill(native_->pid, SIGKILL);
}

}  // namespace quillet

#endif  // _WIN32
