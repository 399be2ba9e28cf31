#include "cli/kept_streams.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "base/text_format.h"

namespace quillet::cli {

namespace {

using Words = std::vector<std::string>;

// What a container holds besides the picture and the sound.
enum class Container { Mp4, Matroska, Other };

Container containerOf(const std::string& ending) {
    const std::string lower = lowerCaseAscii(ending);
    if (lower == ".mp4" || lower == ".m4v" || lower == ".mov" || lower == ".3gp") {
        return Container::Mp4;
    }
    return lower == ".mkv" ? Container::Matroska : Container::Other;
}

// Subtitles that are text, which ffmpeg can turn into any other text format.
constexpr std::array<std::string_view, 17> kTextSubtitles = {
    "subrip",   "srt",      "ass",       "ssa",        "mov_text", "webvtt",
    "text",     "microdvd", "subviewer", "subviewer1", "jacosub",  "sami",
    "realtext", "stl",      "pjs",       "mpl2",       "vplayer"};
// Subtitles that are pictures, which only Matroska of our containers holds as they are.
constexpr std::array<std::string_view, 3> kPictureSubtitles = {"dvd_subtitle", "hdmv_pgs_subtitle",
                                                               "dvb_subtitle"};
// Text subtitles Matroska holds as they are.
constexpr std::array<std::string_view, 4> kMatroskaText = {"subrip", "ass", "ssa", "webvtt"};

template <std::size_t N>
bool isOneOf(const std::string& codec, const std::array<std::string_view, N>& codecs) {
    return std::find(codecs.begin(), codecs.end(), codec) != codecs.end();
}

// The encoder a subtitle stream is written with in `container`; none when it cannot go there.
std::optional<std::string> subtitleEncoder(const std::string& codec, Container container) {
    const bool text = isOneOf(codec, kTextSubtitles);
    switch (container) {
        case Container::Mp4:
            if (text) return "mov_text";
            break;
        case Container::Matroska:
            if (isOneOf(codec, kMatroskaText) || isOneOf(codec, kPictureSubtitles)) return "copy";
            if (text) return "srt";
            break;
        case Container::Other:
            break;
    }
    return std::nullopt;
}

// Formats HEVC players show: 4:2:0 at 8 or 10 bits.
constexpr std::array<std::string_view, 4> kPlayableFormats = {"yuv420p", "yuvj420p", "yuv420p10le",
                                                              "yuv420p10be"};

// The format a picture of `format` is encoded in, when it is not one players show: 10 bits for a
// source deeper than 8, so that its gradients keep their steps, 8 otherwise.
std::optional<std::string> playableFormat(const std::string& format) {
    if (format.empty() || isOneOf(format, kPlayableFormats)) return std::nullopt;
    const bool deep = format.find("10") != std::string::npos ||
                      format.find("12") != std::string::npos ||
                      format.find("16") != std::string::npos;
    return deep ? "yuv420p10le" : "yuv420p";
}

// A picture whose size 4:2:0 cannot hold, unless the job gives it a size of its own.
bool oddSized(const Options& options, const StreamFacts& picture) {
    return options.command != Command::Scale && (picture.width % 2 != 0 || picture.height % 2 != 0);
}

// How the sound tracks are encoded, and at the sample rate asked for when one is.
Words soundCodecArguments(const Options& options, const SourceFacts& facts, SoundCodec sound) {
    if (sound == SoundCodec::Copy) return {"-c:a", "copy"};
    Words words = {"-c:a", "libmp3lame", "-qscale:a", std::to_string(options.mp3Quality)};
    if (sound == SoundCodec::Aac) {
        words = {"-c:a", "aac"};
        const auto tracks = facts.audioTracks();
        for (std::size_t i = 0; i < tracks.size(); ++i) {
            words.insert(words.end(), {"-b:a:" + std::to_string(i),
                                       std::to_string(trackKbps(options, *tracks[i])) + "k"});
        }
    }
    if (options.sampleRate) words.insert(words.end(), {"-ar", std::to_string(*options.sampleRate)});
    return words;
}

// Whether the job's sound is MP3, which holds two channels at most.
bool mp3Sound(const Options& options) {
    return options.command == Command::Mp3 ||
           (options.command == Command::Scale && options.scaleMp3);
}

}  // namespace

int trackKbps(const Options& options, const StreamFacts& track) {
    if (options.audioKbps) return *options.audioKbps;
    constexpr int kStereoChannels = 2;
    return kStereoKbps * (track.channels > 0 ? track.channels : kStereoChannels) / kStereoChannels;
}

int soundKbps(const Options& options, const SourceFacts& facts) {
    int sum = 0;
    for (const StreamFacts* track : facts.audioTracks()) sum += trackKbps(options, *track);
    return sum;
}

Words keptStreamArguments(const Options& options, const SourceFacts& facts,
                          const std::string& ending, SoundCodec sound, int soundInput) {
    const Container container = containerOf(ending);
    Words words = {"-map", "0:V:0"};
    const auto tracks = facts.audioTracks();
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        words.insert(words.end(), {"-map", std::to_string(soundInput) + ":a:" + std::to_string(i)});
    }
    Words codecs;
    int sourceSubtitle = 0;
    int keptSubtitle = 0;
    bool attachments = false;
    for (const StreamFacts& stream : facts.streams) {
        if (stream.type == "attachment") attachments = true;
        if (stream.type != "subtitle") continue;
        const auto encoder = subtitleEncoder(stream.codec, container);
        const std::string index = std::to_string(sourceSubtitle++);
        if (!encoder) continue;
        words.insert(words.end(), {"-map", "0:s:" + index});
        codecs.insert(codecs.end(), {"-c:s:" + std::to_string(keptSubtitle++), *encoder});
    }
    if (attachments && container == Container::Matroska) {
        words.insert(words.end(), {"-map", "0:t"});
        codecs.insert(codecs.end(), {"-c:t", "copy"});
    }
    if (!tracks.empty()) {
        const Words soundCodecs = soundCodecArguments(options, facts, sound);
        words.insert(words.end(), soundCodecs.begin(), soundCodecs.end());
    }
    words.insert(words.end(), codecs.begin(), codecs.end());
    return words;
}

Words soundArguments(const Options& options, const SourceFacts& facts) {
    Words words = {"-map", "0:a"};
    const Words codecs = soundCodecArguments(options, facts, SoundCodec::Aac);
    words.insert(words.end(), codecs.begin(), codecs.end());
    return words;
}

Words pictureArguments(const Options& options, const SourceFacts& facts, Words filters) {
    const StreamFacts* picture = facts.picture();
    // Takes off the last column or row, whichever is odd.
    if (picture && oddSized(options, *picture)) {
        filters.push_back("crop=trunc(iw/2)*2:trunc(ih/2)*2:0:0");
    }
    Words words;
    if (!filters.empty()) {
        std::string chain;
        for (const std::string& filter : filters) chain += (chain.empty() ? "" : ",") + filter;
        words.insert(words.end(), {"-vf", chain});
    }
    if (picture) {
        if (const auto format = playableFormat(picture->pixelFormat)) {
            words.insert(words.end(), {"-pix_fmt", *format});
        }
    }
    // Each picture keeps its own time: a source whose frame rate changes is not evened out to
    // one rate by dropping or repeating pictures.
    words.insert(words.end(), {"-fps_mode", "passthrough"});
    return words;
}

std::vector<std::string> keepingNotes(const Options& options, const SourceFacts& facts,
                                      const std::string& ending) {
    if (options.command == Command::Tags) return {};  // copies every stream as it is
    const Container container = containerOf(ending);
    const StreamFacts* picture = facts.picture();
    std::vector<std::string> notes;
    for (const StreamFacts& stream : facts.streams) {
        const std::string name = stream.type + " " + stream.codec;
        if (stream.type == "video" && stream.attachedPicture) {
            notes.push_back("cover picture left out");
        } else if (stream.type == "video" && &stream != picture) {
            notes.push_back(name + " left out: only the first picture is encoded");
        } else if (stream.type == "subtitle" && !subtitleEncoder(stream.codec, container)) {
            notes.push_back(name + " left out: " + ending + " cannot hold it");
        } else if (stream.type == "attachment" && container != Container::Matroska) {
            notes.push_back("attachment left out: " + ending + " cannot hold it");
        } else if (stream.type == "audio" && stream.channels > 2 && mp3Sound(options)) {
            notes.push_back(name + " made stereo: MP3 holds two channels");
        } else if (stream.type == "data" && stream.codec != "bin_data") {
            // (bin_data is how an .mp4 keeps its chapter names, which the output has anew)
            notes.push_back(name + " left out");
        }
    }
    if (picture) {
        if (const auto format = playableFormat(picture->pixelFormat)) {
            notes.push_back("picture " + picture->pixelFormat + " made " + *format +
                            ", which players show");
        }
        if (oddSized(options, *picture)) {
            notes.push_back("picture cropped to " + std::to_string(picture->width / 2 * 2) + " x " +
                            std::to_string(picture->height / 2 * 2) + ": 4:2:0 needs even sizes");
        }
    }
    return notes;
}

}  // namespace quillet::cli
