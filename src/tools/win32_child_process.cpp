// The child process on Windows: CreateProcessW, hidden and without a console window, standard
// output and standard error both on one anonymous pipe, standard input on a pipe of our own. Every
// child belongs to one job of this program, so that it dies with the program.
#ifdef _WIN32

#include "tools/windows_api.h"

#include <mutex>
#include <utility>
#include <vector>

#include "tools/child_process.h"
#include "tools/command_words.h"

namespace quillet {

namespace {

// A kernel handle, closed when it goes.
class Handle {
public:
    Handle() = default;
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        reset(std::exchange(other.handle_, nullptr));
        return *this;
    }
    ~Handle() { reset(); }
    HANDLE get() const { return handle_; }
    void reset(HANDLE handle = nullptr) {
        if (handle_) ::CloseHandle(handle_);
        handle_ = handle;
    }

private:
    HANDLE handle_ = nullptr;
};

// Both ends of a new pipe; neither is inheritable until the caller says so.
bool makePipe(Handle& readEnd, Handle& writeEnd) {
    HANDLE readHandle = nullptr;
    HANDLE writeHandle = nullptr;
    if (!::CreatePipe(&readHandle, &writeHandle, nullptr, 0)) return false;
    readEnd.reset(readHandle);
    writeEnd.reset(writeHandle);
    return true;
}

bool makeInheritable(const Handle& handle) {
    return ::SetHandleInformation(handle.get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT) != 0;
}

// The command line is UTF-8 here; the wide form lets every file name through.
std::wstring widen(const std::string& text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int wideLength = ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(wideLength), L'\0');
    ::MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), wideLength);
    return wide;
}

// The job every child joins, made on first use and never closed: however this program ends, the
// system then closes the last handle to the job and ends every child still in it. Null when the
// system does not let us make one; children then run outside any job.
HANDLE childrenJob() {
    static const HANDLE job = [] {
        HANDLE made = ::CreateJobObjectW(nullptr, nullptr);  // not inheritable: no child holds it
        if (!made) return HANDLE{nullptr};
        JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
        limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
        if (!::SetInformationJobObject(made, JobObjectExtendedLimitInformation, &limits,
                                       sizeof limits)) {
            ::CloseHandle(made);
            return HANDLE{nullptr};
        }
        return made;
    }();
    return job;
}

// Starts the command hidden, with exactly `input` and `output` inherited: a child that another
// runner starts at the same moment receives neither, so each output ends when its own child does.
bool createHidden(std::wstring commandLine, const std::wstring& folder, HANDLE input, HANDLE output,
                  PROCESS_INFORMATION& process) {
    SIZE_T size = 0;
    ::InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    std::vector<char> storage(size);
    auto* attributes = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(storage.data());
    if (!::InitializeProcThreadAttributeList(attributes, 1, 0, &size)) return false;

    HANDLE inherited[] = {input, output};
    bool created = false;
    if (::UpdateProcThreadAttribute(attributes, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, inherited,
                                    sizeof inherited, nullptr, nullptr)) {
        STARTUPINFOEXW startup{};
        startup.StartupInfo.cb = sizeof startup;
        startup.StartupInfo.dwFlags = STARTF_USESHOWWINDOW | STARTF_USESTDHANDLES;
        startup.StartupInfo.wShowWindow = SW_HIDE;
        startup.StartupInfo.hStdInput = input;
        startup.StartupInfo.hStdOutput = output;
        startup.StartupInfo.hStdError = output;
        startup.lpAttributeList = attributes;
        // Suspended until it is in the job, so that nothing it starts itself escapes the job.
        const DWORD flags = NORMAL_PRIORITY_CLASS | CREATE_NO_WINDOW | CREATE_SUSPENDED |
                            EXTENDED_STARTUPINFO_PRESENT;
        created = ::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, flags,
                                   nullptr, folder.empty() ? nullptr : folder.c_str(),
                                   &startup.StartupInfo, &process) != 0;
    }
    ::DeleteProcThreadAttributeList(attributes);
    return created;
}

}  // namespace

struct ChildProcess::Native {
    Handle process;
    Handle output;  // our end of the child's standard output and standard error
    Handle input;   // our end of the child's standard input, never blocking
    mutable std::mutex mutex;
    bool ended = false;
    double processorSeconds = 0;
};

std::shared_ptr<ChildProcess> ChildProcess::start(const std::string& commandLine,
                                                  const std::string& workingFolder) {
    auto native = std::make_unique<Native>();
    Handle childOutput;
    Handle childInput;
    if (!makePipe(native->output, childOutput) || !makePipe(childInput, native->input) ||
        !makeInheritable(childOutput) || !makeInheritable(childInput)) {
        return nullptr;
    }
    // A stop request must never hang on a child that does not read its input.
    DWORD noWait = PIPE_NOWAIT;
    ::SetNamedPipeHandleState(native->input.get(), &noWait, nullptr, nullptr);

    PROCESS_INFORMATION process{};
    const bool created = createHidden(widen(commandLine), widen(workingFolder), childInput.get(),
                                      childOutput.get(), process);
    // Our copies of the child's ends go at once, so that the output ends when the child's does.
    childOutput.reset();
    childInput.reset();
    if (!created) return nullptr;
    native->process.reset(process.hProcess);
    Handle thread;
    thread.reset(process.hThread);
    // A child that cannot join the job (this program may sit in a job that forbids it) still runs,
    // only without dying with the program.
    if (const HANDLE job = childrenJob()) ::AssignProcessToJobObject(job, process.hProcess);
    if (::ResumeThread(thread.get()) == static_cast<DWORD>(-1)) {
        ::TerminateProcess(process.hProcess, 1);
        return nullptr;
    }
    return std::shared_ptr<ChildProcess>(new ChildProcess(std::move(native)));
}

std::shared_ptr<ChildProcess> ChildProcess::start(const ProgramCall& call,
                                                  const std::string& workingFolder) {
    if (call.arguments.empty()) return nullptr;
    // The program quoted runs as it is named, and each argument quoted reaches it whole.
    std::vector<std::string> words = call.arguments;
    words.front() = call.file;
    return start(joinArguments(words), workingFolder);
}

ChildProcess::ChildProcess(std::unique_ptr<Native> native) : native_(std::move(native)) {}

ChildProcess::~ChildProcess() = default;

std::size_t ChildProcess::read(char* buffer, std::size_t capacity) {
    // A child's empty write arrives as a successful read of nothing; only a failed read (normally
    // the broken pipe once the child has gone) ends the output.
    for (;;) {
        DWORD count = 0;
        if (!::ReadFile(native_->output.get(), buffer, static_cast<DWORD>(capacity), &count,
                        nullptr)) {
            return 0;
        }
        if (count > 0) return count;
    }
}

int ChildProcess::awaitExit() {
    {
        // A child that lingers after its output has ended may be waiting for its input to end.
        std::lock_guard lock(native_->mutex);
        native_->input.reset();
    }
    ::WaitForSingleObject(native_->process.get(), INFINITE);
    std::lock_guard lock(native_->mutex);
    native_->ended = true;
    FILETIME created{}, exited{}, kernel{}, user{};
    if (::GetProcessTimes(native_->process.get(), &created, &exited, &kernel, &user)) {
        // In units of 100 ns.
        const auto seconds = [](const FILETIME& time) {
            return ((static_cast<unsigned long long>(time.dwHighDateTime) << 32) |
                    time.dwLowDateTime) /
                   1e7;
        };
        native_->processorSeconds = seconds(kernel) + seconds(user);
    }
    DWORD code = 0;
    if (!::GetExitCodeProcess(native_->process.get(), &code)) return -1;
    return static_cast<int>(code);
}

double ChildProcess::processorSeconds() const {
    std::lock_guard lock(native_->mutex);
    return native_->processorSeconds;
}

void ChildProcess::askToStop() {
    std::lock_guard lock(native_->mutex);
    if (native_->ended || !native_->input.get()) return;
    DWORD written = 0;
    ::WriteFile(native_->input.get(), "q", 1, &written, nullptr);
}

void ChildProcess::forceEnd() {
    std::lock_guard lock(native_->mutex);
    if (!native_->ended) ::TerminateProcess(native_->process.get(), 1);
}

}  // namespace quillet

#endif  // _WIN32
