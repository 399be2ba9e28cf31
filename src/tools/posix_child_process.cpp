// The child process on POSIX systems: vfork and exec without a shell, standard output and standard
// error both on one pipe, standard input on a pipe of our own. On Linux the child dies with this
// program.
#ifndef _WIN32

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <mutex>
#include <utility>
#include <vector>

#include "tools/child_process.h"

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

// What the child needs between vfork and exec, all of it prepared before: in the child only
// async-signal-safe calls are allowed (another thread may have held the allocator's lock), and it
// writes nothing of the parent's, whose memory it borrows until it runs the program. Borrowing
// rather than copying keeps the start of a tool cheap however large this program has grown.
struct Launch {
    const char* file;
    char* const* argv;
    int input;
    int output;
    int error;  // write end of the pipe that carries errno back when the program cannot be run
    pid_t parent;
    const char* folder;  // where the child works; null for this program's own folder
};

// Runs in the child and never returns.
[[noreturn]] void runChild(const Launch& launch) {
    int failure = 0;
    if (::dup2(launch.input, STDIN_FILENO) < 0 || ::dup2(launch.output, STDOUT_FILENO) < 0 ||
        ::dup2(launch.output, STDERR_FILENO) < 0) {
        failure = errno;
    }
    if (failure == 0) {
        // The child starts with no blocked signals and the default handling of the signals it is
        // ended with, whatever this program has set for itself. A handler of ours must not run
        // here either once signals are unblocked, so every caught signal goes back to default too.
        for (int number = 1; number < NSIG; ++number) {
            struct sigaction current {};
            if (::sigaction(number, nullptr, &current) != 0) continue;
            const bool endsTheChild =
                number == SIGPIPE || number == SIGTERM || number == SIGINT || number == SIGHUP;
            if (endsTheChild || (current.sa_handler != SIG_DFL && current.sa_handler != SIG_IGN)) {
                struct sigaction byDefault {};
                byDefault.sa_handler = SIG_DFL;
                ::sigaction(number, &byDefault, nullptr);
            }
        }
        sigset_t noSignals;
        sigemptyset(&noSignals);
        ::sigprocmask(SIG_SETMASK, &noSignals, nullptr);
#ifdef __linux__
        // The tool dies with this program, however it ends. The system ties this to the thread
        // that started the child, not to the process: children are started from the window
        // thread or from a thread that outlives them.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
#endif
        // This program may have died before the line above took effect.
        if (::getppid() != launch.parent) ::_exit(127);
        if (launch.folder && ::chdir(launch.folder) != 0) {
            failure = errno;
        } else {
            ::execv(launch.file, launch.argv);
            failure = errno;
        }
    }
    while (::write(launch.error, &failure, sizeof failure) < 0 && errno == EINTR) {
    }
    ::_exit(127);
}

// Starts the program with `input` as its standard input and `output` as both standard output and
// standard error. Returns -1 when it cannot start, the program included: the child reports a
// failed exec through a close-on-exec pipe, which simply closes when the exec succeeds.
pid_t spawn(const ProgramCall& call, int input, int output, const std::string& folder) {
    std::vector<char*> argv;
    for (const std::string& argument : call.arguments) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);

    Descriptor errorRead;
    Descriptor errorWrite;
    if (!makePipe(errorRead, errorWrite)) return -1;
    const Launch launch{call.file.c_str(),
                        argv.data(),
                        input,
                        output,
                        errorWrite.get(),
                        ::getpid(),
                        folder.empty() ? nullptr : folder.c_str()};

    // No handler of ours may run in the child before it has reset them all.
    sigset_t allSignals;
    sigset_t previous;
    sigfillset(&allSignals);
    pthread_sigmask(SIG_SETMASK, &allSignals, &previous);
    const pid_t pid = ::vfork();
    if (pid == 0) runChild(launch);
    pthread_sigmask(SIG_SETMASK, &previous, nullptr);
    if (pid < 0) return -1;

    errorWrite.reset();
    int failure = 0;
    ssize_t count;
    while ((count = ::read(errorRead.get(), &failure, sizeof failure)) < 0 && errno == EINTR) {
    }
    if (count == 0) return pid;  // the pipe closed on exec
    // The child never ran the program (or, should the pipe fail, cannot be told apart from one
    // that did not): it is ended and released here, as no one else will know of it.
    ::kill(pid, SIGKILL);
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) {
    }
    errno = failure;
    return -1;
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
    Descriptor output;         // our end of the child's standard output and standard error
    Descriptor input;          // our end of the child's standard input, never blocking
    mutable std::mutex mutex;  // orders signals against the release of the process id
    bool released = false;     // the process id may name another process now
    double processorSeconds = 0;
};

std::shared_ptr<ChildProcess> ChildProcess::start(const std::string& commandLine,
                                                  const std::string& workingFolder) {
    const char* searchPath = std::getenv("PATH");
    const auto call =
        resolveProgram(commandLine, searchPath ? searchPath : "/usr/bin:/bin", isExecutableFile);
    if (!call) return nullptr;
    return start(*call, workingFolder);
}

std::shared_ptr<ChildProcess> ChildProcess::start(const ProgramCall& call,
                                                  const std::string& workingFolder) {
    if (call.arguments.empty()) return nullptr;
    auto native = std::make_unique<Native>();
    Descriptor childOutput;
    Descriptor childInput;
    if (!makePipe(native->output, childOutput) || !makePipe(childInput, native->input)) {
        return nullptr;
    }
    // A stop request must never hang on a child that does not read its input.
    ::fcntl(native->input.get(), F_SETFL, O_NONBLOCK);

    native->pid = spawn(call, childInput.get(), childOutput.get(), workingFolder);
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

int ChildProcess::awaitExit() {
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
    int status = 0;
    rusage usage{};
    while (::wait4(native_->pid, &status, 0, &usage) < 0 && errno == EINTR) {
    }
    const auto seconds = [](const timeval& time) { return time.tv_sec + time.tv_usec / 1e6; };
    native_->processorSeconds = seconds(usage.ru_utime) + seconds(usage.ru_stime);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

double ChildProcess::processorSeconds() const {
    std::lock_guard lock(native_->mutex);
    return native_->processorSeconds;
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
