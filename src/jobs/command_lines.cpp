#include "jobs/command_lines.h"

#include <algorithm>
#include <cctype>

#include "tools/command_words.h"

namespace quillet {

namespace {

// The ffmpeg program in `folder`, called with or without the system's program ending.
std::string ffmpeg(const std::string& folder, const PlatformNames& names, bool withSuffix) {
    std::string program = folder + names.separator + "ffmpeg";
    if (withSuffix) program += names.executableSuffix;
    return program;
}

std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

// The source input, common to every method: " -i "SOURCE" ".
std::string input(const ProgramState& job) {
    return " -i " + quoteArgument(job.SourceVideo) + " ";
}

}  // namespace

std::string targetSizeCommandLine(const std::string& programFolder, const ProgramState& job,
                                  const PlatformNames& names) {
    return ffmpeg(programFolder, names, true) + input(job) + "-c:v libx265 -preset " +
           lowerCase(job.PresetName) + " -b:v " + job.VideoBitRate + "k -c:a aac -b:a " +
           job.AudioBitRate + "k -ar " + job.SampleRate + " -y " + quoteArgument(job.OutputVideo);
}

std::string crfCommandLine(const std::string& programFolder, const ProgramState& job,
                           const PlatformNames& names) {
    return ffmpeg(programFolder, names, true) + input(job) + "-c:v libx265 -crf " + job.CRFValue +
           " -preset " + lowerCase(job.PresetName) + " -c:a aac -b:a " + job.AudioBitRate +
           "k -ar " + job.SampleRate + " -y " + quoteArgument(job.OutputVideo);
}

std::string abrCommandLine(const std::string& programFolder, const ProgramState& job,
                           const PlatformNames& names) {
    return ffmpeg(programFolder, names, false) + input(job) + "-c:v libx265 -preset " +
           lowerCase(job.PresetName) + " -b:v " + job.ABRBitRate + job.ABRUnit + " -minrate " +
           job.MinBitRate + " -maxrate " + job.MaxBitRate + " -bufsize " + job.BufferSize +
           " -c:a aac -ar " + job.SampleRate + " -b:a " + job.AudioBitRate + " -y " +
           job.OutputVideo;
}

std::string qpCommandLine(const std::string& programFolder, const ProgramState& job,
                          const PlatformNames& names) {
    return ffmpeg(programFolder, names, false) + input(job) +
           "-c:v libx265 -x265-params qp=" + job.QPValue + ":rc-lookahead=" + job.QPLookAhead +
           " -preset " + lowerCase(job.PresetName) + " -c:a aac -ar " + job.SampleRate + " -b:a " +
           job.AudioBitRate + "k -y " + job.OutputVideo;
}

}  // namespace quillet
