# Cross compiling the logic and its tests for Windows with Debian's mingw-w64 (posix threads variant,
# for std::thread). GoogleTest's own build is C and C++, hence both compilers.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
set(CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# Programs carry their runtime (libstdc++, libgcc, winpthread) inside, so that they run from any
# folder without the compiler's DLLs beside them.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
