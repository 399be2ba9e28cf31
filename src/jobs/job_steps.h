#pragma once

#include <span>
#include <string>
#include <string_view>

#include "app/form_id.h"
#include "app/program_state.h"
#include "base/platform_names.h"

namespace quillet {

// What a window that runs ffmpeg does, one step after the other, from its load to its end. The
// windows differ only in which steps they take and in what order, so each has a table of them
// rather than branches of its own.
enum class JobAction {
    StopIfFinished,          // JobFinished is set: the job goes no further
    PlaceWindow,             // the window shows itself beside the main window
    NameOutput,              // the output path, beside the source, named by the window itself
    Wait,                    // a pause of `milliseconds`; the windows stay live meanwhile
    SpeedDisplayOn,          // the main window follows the speed level (running-job element)
    TakeCpuReading,          // the processor monitor reads the load now, if it is switched on
    RunCommand,              // ffmpeg runs; the job goes on once its output has ended
    MarkFinished,            // JobFinished is set
    CloseSampleRateChooser,  // the sample-rate chooser goes, if it is showing
    ForgetSpeedLevel,        // SpeedLevel becomes -1
    PlayOnCompletion,        // the output opens, once per job, if the main window asks for it
    PlayUnlessJobFinished,   // the output opens if the main window asks for it and JobFinished
                             // is still clear
    SpeedDisplayOff,         // the main window stops following the speed (finished-job element)
    ResetProgressDisplay,    // the bar empty and the caption "Compression Progress 00% Completed"
    ResetMainWindow,         // the main window's reset procedure
    NormalSpeedCells,        // every speed cell but the last back to the normal colour
    UnloadWindow,            // the window unloads itself
    WindowEnding,            // what the window itself does at the end of a run
};

struct JobStep {
    JobAction action;
    int milliseconds = 0;  // Wait only
};

using CommandLineFunction = std::string (*)(const std::string& programFolder,
                                            const ProgramState& job, const PlatformNames& names);

// One compression method's job window: its name, title, command line and steps.
struct CompressionJob {
    std::string_view method;  // CompressionMethod: "TFS", "CRF", "ABR", "QP"
    FormId window;
    const char* title;
    CommandLineFunction commandLine;
    bool followsTime;  // the progress bar and percentage follow ffmpeg's "time"
    std::span<const JobStep> steps;
    bool readsCpuWithEachPiece;  // the processor monitor reads the load before each piece
};

// The job of a compression method, or null for a method that has none (an empty one).
const CompressionJob* compressionJobForMethod(std::string_view method);
// The job that runs in a compression job window.
const CompressionJob& compressionJobOfWindow(FormId window);

}  // namespace quillet
