#pragma once

#include <memory>
#include <optional>

namespace quillet {

// One source of processor-load readings for the CPU cell of the main window.
class CpuSampler {
public:
    virtual ~CpuSampler() = default;

    // The load in percent, averaged alike over every processor row the system reports (the
    // per-processor rows and the total rows), or nothing when no reading could be taken.
    virtual std::optional<double> read() = 0;
};

// The sampler of the system the program runs on: the /proc/stat counters on Linux, the
// processor-information performance class of the management service on Windows.
std::unique_ptr<CpuSampler> makeSystemCpuSampler();

}  // namespace quillet
