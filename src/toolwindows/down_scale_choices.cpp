#include "toolwindows/down_scale_choices.h"

#include "jobs/command_lines.h"
#include "tools/command_words.h"

namespace quillet {

std::string downScaleCommandLine(const std::string& programFolder, const DownScaleJob& job,
                                 const PlatformNames& names) {
    std::string command =
        ffmpegProgram(programFolder, names, false) + sourceInput(job.source) + "-c:v libx265";
    if (job.setCrf) command += " -crf " + std::to_string(job.mp3Audio ? job.crf : 40);
    command += " -vf scale=" + job.scale + ",setsar=1:1";
    if (job.mp3Audio) command += " -codec:a libmp3lame -qscale:a " + std::to_string(job.qscale);
    return command + " -y " + quoteArgument(job.output);
}

}  // namespace quillet
