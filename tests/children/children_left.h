#pragma once

#ifdef _WIN32
#include "tools/windows_api.h"
// after windows.h, whose types it uses
#include <tlhelp32.h>

#include <string_view>

#include "under_wine.h"
#else
#include <sys/wait.h>

#include <cerrno>
#endif

#include <chrono>
#include <thread>

namespace quillet::children {

// Which children count as left behind: ended ones that nobody released, or any at all.
enum class Left { Unreleased, Any };

#ifdef _WIN32
// When a process started, as a number that grows with time; 0 when it cannot be asked.
inline unsigned long long startTime(HANDLE process) {
    FILETIME created{}, exited{}, kernel{}, user{};
    if (!::GetProcessTimes(process, &created, &exited, &kernel, &user)) return 0;
    return (static_cast<unsigned long long>(created.dwHighDateTime) << 32) | created.dwLowDateTime;
}

// Whether the process `id` is a child of this one. A process keeps the number of the parent that
// started it after that parent has gone, and numbers are handed out again (wine does so at once,
// in the same order each session), so a process of an earlier program can name this one as its
// parent: a real child started after its parent.
inline bool startedAfterUs(DWORD id) {
    const HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, id);
    if (!process) return true;  // running, but not to be asked: counted
    const bool after = startTime(process) >= startTime(::GetCurrentProcess());
    ::CloseHandle(process);
    return after;
}

// Wine shows the desktop through a process of its own, which it starts as a child of the first
// program of a session to show a window: that one is not a child of the program's making.
inline bool winesDesktop(const PROCESSENTRY32W& entry) {
    return underWine() && std::wstring_view(entry.szExeFile) == L"explorer.exe";
}

// Windows keeps no ended child waiting for its parent, so either kind means one still running.
inline bool anyChildLeft(Left) {
    const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return true;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    bool found = false;
    for (BOOL more = ::Process32FirstW(snapshot, &entry); more && !found;
         more = ::Process32NextW(snapshot, &entry)) {
        found = entry.th32ParentProcessID == ::GetCurrentProcessId() &&
                startedAfterUs(entry.th32ProcessID) && !winesDesktop(entry);
    }
    ::CloseHandle(snapshot);
    return found;
}
#else
inline bool anyChildLeft(Left kind) {
    siginfo_t info{};  // looked at, not released: WNOWAIT
    const bool failed = ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) != 0;
    if (kind == Left::Any) return !(failed && errno == ECHILD);
    return !failed && info.si_pid != 0;
}
#endif

// Whether this test program is left with no child of that kind, allowing a few seconds for a
// child that ends, or is released, after the run.
inline bool noChildLeft(Left kind) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (anyChildLeft(kind)) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    return true;
}

}  // namespace quillet::children
