#include "toolwindows/tool_job_steps.h"

#include <array>

namespace quillet {

namespace {

using enum JobAction;

constexpr std::array<JobStep, 8> kMp3ToolSteps = {{
    {SpeedDisplayOn},
    {RunCommand},
    {Wait, 2000},
    {PlayUnlessJobFinished},
    {ForgetSpeedLevel},
    {Wait, 2000},
    {WindowEnding},
    {Wait, 2000},
}};

constexpr std::array<JobStep, 6> kFrameRateToolSteps = {{
    {RunCommand},
    {MarkFinished},
    {PlayOnCompletion},
    {ForgetSpeedLevel},
    {WindowEnding},
    {Wait, 2000},
}};

constexpr std::array<JobStep, 9> kDownScaleToolSteps = {{
    {SpeedDisplayOn},
    {RunCommand},
    {Wait, 2000},
    {PlayUnlessJobFinished},
    {MarkFinished},
    {WindowEnding},
    {ResetProgressDisplay},
    {ResetMainWindow},
    {SpeedDisplayOff},
}};

}  // namespace

std::span<const JobStep> mp3ToolSteps() {
    return kMp3ToolSteps;
}

std::span<const JobStep> downScaleToolSteps() {
    return kDownScaleToolSteps;
}

std::span<const JobStep> frameRateToolSteps() {
    return kFrameRateToolSteps;
}

}  // namespace quillet
