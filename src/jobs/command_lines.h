#pragma once

#include <string>

#include "app/program_state.h"
#include "base/platform_names.h"

namespace quillet {

// The ffmpeg command line of each compression method, from the job settings, character by
// character. The four are deliberately not one template: they differ in the name ffmpeg is called
// by (with or without the program ending), the order of the audio options, the "k" after the audio
// rate, and whether the output path is quoted (unquoted, a blank in it splits the argument). The
// program path is never quoted; the source path always is. `programFolder` holds ffmpeg.

// The ffmpeg program in `folder`, unquoted, called with or without the system's program ending.
std::string ffmpegProgram(const std::string& folder, const PlatformNames& names, bool withSuffix);
// The source input that every ffmpeg command of the program starts with: " -i "SOURCE" ".
std::string sourceInput(const std::string& source);

// Target file size: ... -c:v libx265 -preset P -b:v RATEk -c:a aac -b:a Ak -ar S -y "OUT"
std::string targetSizeCommandLine(const std::string& programFolder, const ProgramState& job,
                                  const PlatformNames& names);
// Constant rate factor: ... -c:v libx265 -crf C -preset P -c:a aac -b:a Ak -ar S -y "OUT"
std::string crfCommandLine(const std::string& programFolder, const ProgramState& job,
                           const PlatformNames& names);
// Average bit rate: ... -b:v RU -minrate .. -maxrate .. -bufsize .. -c:a aac -ar S -b:a A -y OUT
std::string abrCommandLine(const std::string& programFolder, const ProgramState& job,
                           const PlatformNames& names);
// Constant quantizer: ... -x265-params qp=Q:rc-lookahead=L -preset P -c:a aac -ar S -b:a Ak -y OUT
std::string qpCommandLine(const std::string& programFolder, const ProgramState& job,
                          const PlatformNames& names);

}  // namespace quillet
