#include "jobs/job_steps.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "jobs/command_lines.h"

namespace quillet {

namespace {

using enum JobAction;

// Target size and CRF: the load waits a second and runs the job unless it has finished; at the end
// the main window is reset and then closes the target-size window from its timer (the reset
// already unloads the CRF one).
constexpr std::array<JobStep, 13> kClosedByMainWindow = {{
    {StopIfFinished},
    {PlaceWindow},
    {Wait, 1000},
    {StopIfFinished},
    {SpeedDisplayOn},
    {RunCommand},
    {Wait, 2000},
    {PlayOnCompletion},
    {SpeedDisplayOff},
    {MarkFinished},
    {ResetProgressDisplay},
    {ResetMainWindow},
    {NormalSpeedCells},
}};

// ABR and QP: the window names the output itself, waits two seconds, marks the job finished as
// soon as ffmpeg's output ends and unloads itself at the end.
constexpr std::array<JobStep, 14> kUnloadsItself = {{
    {PlaceWindow},
    {NameOutput},
    {Wait, 2000},
    {SpeedDisplayOn},
    {StopIfFinished},
    {TakeCpuReading},
    {RunCommand},
    {MarkFinished},
    {CloseSampleRateChooser},
    {ForgetSpeedLevel},
    {Wait, 2000},
    {PlayOnCompletion},
    {ResetMainWindow},
    {UnloadWindow},
}};

constexpr std::array<CompressionJob, 4> kCompressionJobs = {{
    {"TFS", FormId::Form5, "Compressing to a Target File Size", targetSizeCommandLine, true,
     kClosedByMainWindow, false},
    {"CRF", FormId::Form6, "Compressing with a Constant Rate Factor", crfCommandLine, true,
     kClosedByMainWindow, false},
    {"ABR", FormId::Form7, "Compressing at an Average Bit Rate", abrCommandLine, false,
     kUnloadsItself, true},
    {"QP", FormId::Form8, "Compressing with a Constant Quantizer", qpCommandLine, true,
     kUnloadsItself, true},
}};

}  // namespace

const CompressionJob* compressionJobForMethod(std::string_view method) {
    const auto found =
        std::find_if(kCompressionJobs.begin(), kCompressionJobs.end(),
                     [&](const CompressionJob& job) { return job.method == method; });
    return found == kCompressionJobs.end() ? nullptr : &*found;
}

const CompressionJob& compressionJobOfWindow(FormId window) {
    for (const CompressionJob& job : kCompressionJobs) {
        if (job.window == window) return job;
    }
    throw std::invalid_argument("not a compression job window");
}

}  // namespace quillet
