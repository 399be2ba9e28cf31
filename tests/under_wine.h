#pragma once

#include "tools/windows_api.h"

namespace quillet {

// Whether the Windows build of a test runs under wine rather than on Windows. Where wine behaves
// unlike Windows, a test says how and skips there only: on Windows it still runs.
inline bool underWine() {
#ifdef _WIN32
    const HMODULE system = ::GetModuleHandleW(L"ntdll.dll");
    return system && ::GetProcAddress(system, "wine_get_version") != nullptr;
#else
    return false;
#endif
}

}  // namespace quillet
