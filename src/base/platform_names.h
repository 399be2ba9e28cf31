#pragma once

#include <string_view>

namespace quillet {

// How paths and program names are written on a system: the folder separator and the ending of a
// program file. Functions that compose paths and command lines take these as a parameter, so the
// Windows forms can be checked on any system.
struct PlatformNames {
    char separator;
    std::string_view executableSuffix;
};

inline constexpr PlatformNames kWindowsNames{'\\', ".exe"};
inline constexpr PlatformNames kPosixNames{'/', ""};

#ifdef _WIN32
inline constexpr PlatformNames kThisPlatform = kWindowsNames;
#else
inline constexpr PlatformNames kThisPlatform = kPosixNames;
#endif

}  // namespace quillet
