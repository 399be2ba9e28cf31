#include "toolwindows/tool_command_lines.h"

#include "base/text_format.h"
#include "jobs/command_lines.h"
#include "tools/command_words.h"

namespace quillet {

std::string mp3AudioCommandLine(const std::string& programFolder, const Mp3AudioJob& job,
                                const PlatformNames& names) {
    return ffmpegProgram(programFolder, names, false) + sourceInput(job.source) +
           "-c:v libx265 -crf " + std::to_string(job.crf) + " -preset " + job.preset +
           " -codec:a libmp3lame -qscale:a " + std::to_string(job.qscale) + " -ar " +
           job.sampleRate + " -y " + quoteArgument(job.output);
}

std::string frameRateCommandLine(const std::string& programFolder, const FrameRateJob& job,
                                 const PlatformNames& names) {
    // The shared audio rate is the bare number that a job start leaves in it, except after a
    // reset of the main window, which leaves "192k": the unit is written once, whichever it is,
    // since "192kk" would make ffmpeg refuse the whole run.
    std::string audioBitRate = job.audioBitRate;
    if (audioBitRate.ends_with('k')) audioBitRate.pop_back();
    return ffmpegProgram(programFolder, names, false) + sourceInput(job.source) +
           "-c:v libx265 -filter:v fps=" + std::to_string(job.framesPerSecond) + " -preset " +
           lowerCaseAscii(job.preset) + " -c:a aac -b:a " + audioBitRate + "k -ar " +
           job.sampleRate + " -y " + quoteArgument(job.output);
}

}  // namespace quillet
