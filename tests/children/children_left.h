#pragma once

#ifdef _WIN32
#include "tools/windows_api.h"
// after windows.h, whose types it uses
#include <tlhelp32.h>
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
// Windows keeps no ended child waiting for its parent, so either kind means one still running.
inline bool anyChildLeft(Left) {
    const HANDLE snapshot = ::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return true;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    bool found = false;
    for (BOOL more = ::Process32FirstW(snapshot, &entry); more && !found;
         more = ::Process32NextW(snapshot, &entry)) {
        found = entry.th32ParentProcessID == ::GetCurrentProcessId();
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
