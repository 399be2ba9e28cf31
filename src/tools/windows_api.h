#pragma once

// The Windows API, without the parts of windows.h that nothing here uses. Nothing on other systems.
#ifdef _WIN32
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>
#endif
