#include "cli/cli_options.h"

namespace quillet::cli {

std::string helpText() {
    return R"(quillet-cli: compresses videos to H.265 with ffmpeg, one job after the other.

Usage: quillet-cli COMMAND [OPTIONS] INPUT...
INPUT is a video file or a folder (its videos are taken, not those of its subfolders).
Each output goes beside its source as Compressed-<name>, or into --output-dir.
A batch never takes its own outputs (Compressed-<name> of another of its inputs)
or partial outputs as inputs; what a killed run left (a partial output, a working
folder) is removed by the next run over the same folders, which says so.

What an output keeps: the picture (the first video stream), re-encoded, each
picture at its own time (a changing frame rate stays as it was); every sound
track, as AAC at its own sample rate and channels (80 kbit/s a channel unless
--audio-bitrate says otherwise), or MP3 for mp3 and scale --mp3; subtitles the
container holds (.mp4: as its own text; .mkv: all, fonts too); chapters and
tags. A picture players cannot show (not 4:2:0, or odd sides) is made 4:2:0 and
cropped to even sides. What is left out (a cover picture, picture subtitles in
an .mp4, a time code) is said in the job's line.

Commands:
  compress   re-encode with libx265 under one of four rate-control methods
  estimate   foretell what compress would make of each input (size, time), from
             samples that are at most 5% of its running time; writes nothing
  mp3        re-encode the picture at a rate factor and the audio to MP3
  scale      scale the picture down to a height of 240, 360, 480 or 720
  fps        change the frame rate
  tags       write container tags into a copy, streams copied as they are
  probe      show running time, resolution and streams

compress and estimate (estimate takes a compress command line as it is):
  --method tfs|crf|abr|qp  target file size, constant rate factor (default),
                           average bit rate or constant quantizer. Without
                           --method, an option of one method below chooses
                           it; with another --method, or beside an option of
                           another method, it is refused
  tfs: --target-mb MB      the size to reach, up to 1000000 MB (needed);
                           1 MB = 1,048,576 bytes
       --two-pass          two passes, to land within 2% under the target: the
                           second runs up to 3 times, an output over is never
                           kept (none under: the job fails); it costs about
                           two encodes. One pass aims at the target but can
                           miss it either way: on hard clips from half of it
                           to twice it
  crf: --crf N             rate factor, 0 to 51 (default 20)
  abr: --bitrate R --minrate R --maxrate R --bufsize R
                           rates up to 2000M (defaults 900k, 1.1M, 2.0M, 1.1M)
  qp:  --qp N --lookahead N
                           quantizer, 0 to 51, and look-ahead (defaults 14, 18);
                           the look-ahead must be longer than the preset's
                           longest run of B-frames (3 to 8)
  --preset NAME            libx265 preset, from ultrafast to placebo
                           (default veryfast)
  --audio-bitrate K        each sound track's AAC rate in kbit/s, 8 to 640
                           (default 80 a channel: 160 for stereo, 480 for 5.1)
  --sample-rate HZ         audio sample rate (default: each track's own), one
                           the audio encoder takes: AAC 7350 to 96000, MP3
                           16000 to 48000, the standard rates between (a
                           refusal lists them)
mp3:    --crf N --preset NAME --quality 1..9 (default 5) --sample-rate HZ
scale:  --height 240|360|480|720 (default 480) [--crf N] [--audio-bitrate K]
        [--sample-rate HZ] [--mp3 Q, 1..9, audio to MP3]
fps:    --fps N [--preset NAME] [--audio-bitrate K] [--sample-rate HZ]
tags:   --tag KEY=VALUE (as many as wanted)

Every command but probe:
  --output-dir DIR   write the outputs there
  --overwrite        replace an existing output (default: skip that input)
  --rename           keep an existing output and write Compressed-<name> (2) and so on
Every command but tags and probe:
  --min-saving PCT   remove an output that is not at least PCT% smaller than
                     its source; the job counts as kept the source (not smaller)
Every command:
  --json             one JSON object a line: per progress update (source as its
                     full path, index and count of the job in the batch, pass
                     and try, null for one pass; percent, seconds_left and
                     projected_bytes when known), per finished job (sizes for
                     done, kept-source and stopped jobs; an estimate's with
                     predicted_bytes and predicted_seconds), per removed
                     leftover, and a summary (with stopped); a number not known
                     (a speed ffmpeg cannot tell) is null, and each byte of a
                     name that is not UTF-8 is kept as \udc80-\udcff
  --                 what follows are inputs, even names that start with "-"

An option a command does not use, one given twice with different values and
--overwrite with --rename are refused, before any job runs.

quillet-cli --version (or -V) prints the version; --help (or -h) this text.

Exit status: 0 every job done or skipped, 1 some job failed, 2 bad usage, 130 stopped
(Ctrl-C or the termination signal: ffmpeg is stopped and the partial output removed).

Examples:
  quillet-cli compress --target-mb 50 --two-pass holiday.mp4
  quillet-cli compress --method crf --crf 24 --output-dir small ~/Videos/phone
  quillet-cli estimate --method crf --crf 24 ~/Videos/phone
  quillet-cli scale --height 720 --rename *.mov
  quillet-cli tags --tag title="Summer 2026" --tag artist=Ann clip.mp4
  quillet-cli probe clip.mp4
)";
}

std::string versionText() {
    return "quillet-cli " QUILLET_VERSION "\n";
}

}  // namespace quillet::cli
