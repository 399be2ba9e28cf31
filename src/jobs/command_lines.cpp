#include "jobs/command_lines.h"

#include "base/text_format.h"
#include "tools/command_words.h"

namespace quillet {

std::string ffmpegProgram(const std::string& folder, const PlatformNames& names, bool withSuffix) {
    std::string program = folder + names.separator + "ffmpeg";
    if (withSuffix) program += names.executableSuffix;
    return program;
}

std::string sourceInput(const std::string& source) {
    return " -i " + quoteArgument(source) + " ";
}

std::string targetSizeCommandLine(const std::string& programFolder, const ProgramState& job,
                                  const PlatformNames& names) {
    return ffmpegProgram(programFolder, names, true) + sourceInput(job.SourceVideo) +
           "-c:v libx265 -preset " + lowerCaseAscii(job.PresetName) + " -b:v " + job.VideoBitRate +
           "k -c:a aac -b:a " + job.AudioBitRate + "k -ar " + job.SampleRate + " -y " +
           quoteArgument(job.OutputVideo);
}

std::string crfCommandLine(const std::string& programFolder, const ProgramState& job,
                           const PlatformNames& names) {
    return ffmpegProgram(programFolder, names, true) + sourceInput(job.SourceVideo) +
           "-c:v libx265 -crf " + job.CRFValue + " -preset " + lowerCaseAscii(job.PresetName) +
           " -c:a aac -b:a " + job.AudioBitRate + "k -ar " + job.SampleRate + " -y " +
           quoteArgument(job.OutputVideo);
}

std::string abrCommandLine(const std::string& programFolder, const ProgramState& job,
                           const PlatformNames& names) {
    return ffmpegProgram(programFolder, names, false) + sourceInput(job.SourceVideo) +
           "-c:v libx265 -preset " + lowerCaseAscii(job.PresetName) + " -b:v " + job.ABRBitRate +
           job.ABRUnit + " -minrate " + job.MinBitRate + " -maxrate " + job.MaxBitRate +
           " -bufsize " + job.BufferSize + " -c:a aac -ar " + job.SampleRate + " -b:a " +
           job.AudioBitRate + " -y " + job.OutputVideo;
}

std::string qpCommandLine(const std::string& programFolder, const ProgramState& job,
                          const PlatformNames& names) {
    return ffmpegProgram(programFolder, names, false) + sourceInput(job.SourceVideo) +
           "-c:v libx265 -x265-params qp=" + job.QPValue + ":rc-lookahead=" + job.QPLookAhead +
           " -preset " + lowerCaseAscii(job.PresetName) + " -c:a aac -ar " + job.SampleRate +
           " -b:a " + job.AudioBitRate + "k -y " + job.OutputVideo;
}

}  // namespace quillet
