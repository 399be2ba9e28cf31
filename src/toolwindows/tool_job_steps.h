#pragma once

#include <span>

#include "jobs/job_steps.h"

namespace quillet {

// The MP3 audio tool: the main window follows the speed; after ffmpeg's output ends, two seconds,
// the output opens unless a job has marked itself finished meanwhile, two more seconds, the
// window's own ending, and two seconds more.
std::span<const JobStep> mp3ToolSteps();

// The frame-rate tool: the job is finished as soon as ffmpeg's output ends, the output opens once,
// the window goes back to how it loaded, and two seconds pass.
std::span<const JobStep> frameRateToolSteps();

// The down-scale tool: the main window follows the speed; two seconds after ffmpeg's output ends
// the output opens unless a job has marked itself finished meanwhile; then the job is finished,
// the window resets itself and the main window resets (which closes the tool).
std::span<const JobStep> downScaleToolSteps();

}  // namespace quillet
