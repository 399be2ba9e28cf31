#pragma once

#include <sys/resource.h>

#include <chrono>

// Processor time (user and system, all threads) this process has used so far.
inline std::chrono::duration<double> processTime() {
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    return std::chrono::seconds(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
           std::chrono::microseconds(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
}
