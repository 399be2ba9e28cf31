// What a running batch shows: a terminal line that fits its width whatever the name, the pass of a
// two-pass job, and JSON events that name each job the same way from start to end.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <tuple>
#include <utility>

#include "cli/batch_report.h"
#include "cli/display_width.h"
#include "cli/job_progress.h"

namespace quillet::cli {
namespace {

bool wholeUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = utf8Length(text);
        if (length == 0) return false;
        text.remove_prefix(length);
    }
    return true;
}

// A job a quarter done: 5 s of 20 encoded at 2.5x, 1 MB written.
JobView quarterDone(const std::string& name) {
    Progress progress;
    for (const char* line : {"out_time_us=5000000", "total_size=1048576", "speed=2.5x"}) {
        readProgressLine(line, progress);
    }
    return JobView{.name = name, .runningSeconds = 20.0, .progress = progress};
}

// The value of the first "source" key of a JSON line.
std::string sourceOf(const std::string& json) {
    const std::string key = "\"source\":";
    const std::size_t start = json.find(key) + key.size();
    return json.substr(start, json.find(",\"", start) - start);
}

std::string readAll(std::FILE* file) {
    std::rewind(file);
    std::string text;
    for (int c; (c = std::fgetc(file)) != EOF;) text += static_cast<char>(c);
    return text;
}

TEST(DisplayWidth, WideCharactersTakeTwoColumnsMarksNoneAndStrayBytesOne) {
    const std::pair<std::string, int> cases[] = {
        {"clip.mp4", 8},
        // Ideographs, one past U+FFFF, Hangul, hiragana and katakana, a fullwidth A.
        {"\xe6\x97\xa5\xf0\xa0\x80\x80\xed\x95\x9c\xe3\x81\x8b\xe3\x82\xab\xef\xbc\xa1.mp4", 16},
        {"\xef\xbd\xb6\xce\xa9", 2},            // halfwidth katakana, Greek
        {"e\xcc\x81t\xc3\xa9\xe2\x80\x8b", 3},  // combining acute, precomposed, zero-width space
        {"\xf0\x9f\x8e\xac clip", 7},           // an emoji
        {"caf\xe9 \xe8\xa6\xff", 8},            // Latin-1, cut short, never valid
    };
    for (const auto& [text, columns] : cases) EXPECT_EQ(displayColumns(text), columns) << text;
}

TEST(DisplayWidth, ShortenedTextKeepsItsStartAndEndAndWholeCharacters) {
    const std::string ideographs =  // 8 ideographs, 16 columns
        "\xe6\x97\xa5\xe6\x9c\xac\xe8\xaa\x9e\xe3\x81\xae\xe9\x95\xb7\xe3\x81\x84\xe5\x90\x8d"
        "\xe5\x89\x8d";
    const std::tuple<std::string, int, std::string> cases[] = {
        {"abcdefghij", 10, "abcdefghij"},
        {"abcdefghij", 7, "ab...ij"},
        // A wide character that does not fit whole leaves its column empty.
        {ideographs, 9, "\xe6\x97\xa5...\xe5\x89\x8d"},
        // A mark stays with its character: after the start, and never left at the end's start.
        {"ae\xcc\x81"
         "cdefgh",
         7, "ae\xcc\x81...gh"},
        {"abcdefge\xcc\x81z", 6, "ab...z"},
        {"abcdefe\xcc\x81z", 7, "ab...e\xcc\x81z"},
        {"abcdef", 4, "abcd"},  // too narrow for the marker
    };
    for (const auto& [text, columns, shortened] : cases) {
        EXPECT_EQ(shortenedToColumns(text, columns), shortened) << text << " in " << columns;
    }
    const std::string mixed = "Ab\xe6\x97\xa5\xcc\x81-\xf0\x9f\x8e\xac" + ideographs + "z.mp4";
    for (int columns = 0; columns <= displayColumns(mixed); ++columns) {
        const std::string shortened = shortenedToColumns(mixed, columns);
        EXPECT_LE(displayColumns(shortened), columns) << shortened;
        EXPECT_TRUE(wholeUtf8(shortened)) << shortened;
    }
}

TEST(DisplayWidth, ControlCharactersAndStrayBytesAreNotWrittenToTheTerminal) {
    EXPECT_EQ(printableText("a\nb\r\tc\x1b[2J\x7f\xc2\x85\xe9 \xc3\xa9"), "a?b??c?[2J??? \xc3\xa9");
}

TEST(TerminalLine, ALongCjkNameFitsEightyColumnsWithItsFiguresWhole) {
    std::string name;
    for (int i = 0; i < 40; ++i) name += "\xe6\x97\xa5";  // 80 columns of ideographs
    name += "-\xe6\x9c\xab.mp4";
    const JobView job = quarterDone(name);
    const std::string line = terminalLine(job, 80);
    EXPECT_LE(displayColumns(line), 79) << line;
    EXPECT_TRUE(wholeUtf8(line)) << line;
    EXPECT_EQ(line.substr(0, 12), name.substr(0, 12));
    EXPECT_NE(line.find("...-\xe6\x9c\xab.mp4  25.0%  0:00:05  2.50x  1.0 MB  left "
                        "0:00:06  about 4.0 MB"),
              std::string::npos)
        << line;

    // Short of room, the least telling figures give way before the name shrinks below 20.
    JobView twoPass = job;
    twoPass.pass = PassView{2, 2};
    twoPass.index = 3;
    twoPass.count = 12;
    const std::string crowded = terminalLine(twoPass, 80);
    EXPECT_NE(crowded.find("  pass 2/2 try 2  25.0%  left 0:00:06  about 4.0 MB"),
              std::string::npos)
        << crowded;
    for (int columns = 0; columns <= 120; ++columns) {
        const std::string fitted = terminalLine(twoPass, columns);
        EXPECT_LE(displayColumns(fitted), std::max(columns - 1, 0)) << fitted;
        EXPECT_TRUE(wholeUtf8(fitted)) << fitted;
        if (columns >= 44) {
            EXPECT_NE(fitted.find("  pass 2/2 try 2  25.0%"), std::string::npos) << fitted;
        }
    }
}

TEST(TerminalLine, TwoPassJobsShowThePassAndItsTry) {
    JobView job = quarterDone("clip.mp4");
    job.pass = PassView{1, 1};
    EXPECT_EQ(terminalLine(job, 80),
              "clip.mp4  pass 1/2  25.0%  0:00:05  2.50x  1.0 MB  left 0:00:06  about 4.0 MB");
    job.pass = PassView{2, 1};
    EXPECT_NE(terminalLine(job, 80).find("clip.mp4  pass 2/2  25.0%"), std::string::npos);
    job.pass = PassView{2, 3};
    job.count = 4;
    EXPECT_NE(terminalLine(job, 80).find("clip.mp4  1 of 4  pass 2/2 try 3  25.0%"),
              std::string::npos);
}

TEST(JsonEvents, ProgressAndEndNameTheSourceAlikeAndTellThePassAndPlace) {
    const std::string path = "/videos/\xc3\xa9t\xc3\xa9 \"1\"\xff.mp4";
    JobView job = quarterDone("\xc3\xa9t\xc3\xa9 \"1\"\xff.mp4");
    job.source = path;
    job.pass = PassView{2, 2};
    job.index = 2;
    job.count = 3;
    const std::string progress = jsonUpdate(job);
    JobEnd end;
    end.source = path;
    const std::string ended = jsonEnd(end);
    EXPECT_EQ(sourceOf(progress), jsonString(path)) << progress;
    EXPECT_EQ(sourceOf(ended), sourceOf(progress)) << ended;
    EXPECT_NE(progress.find(R"("index":2,"count":3,"pass":2,"try":2,)"), std::string::npos)
        << progress;
    job.pass.reset();
    EXPECT_NE(jsonUpdate(job).find(R"("pass":null,"try":null,)"), std::string::npos);
}

TEST(JsonEvents, AStoppedJobGivesItsSizesAndTheSummaryCountsIt) {
    JobEnd stopped;
    stopped.status = JobEnd::Status::Stopped;
    stopped.source = "/v/a.mp4";
    stopped.output = "/v/Compressed-a.mp4";
    stopped.sourceBytes = 4194304;
    stopped.encodes = 2;
    stopped.seconds = 12.34;
    EXPECT_NE(jsonEnd(stopped).find(
                  R"("source_bytes":4194304,"output_bytes":0,"encodes":2,"seconds":12.3)"),
              std::string::npos)
        << jsonEnd(stopped);
    JobEnd done = stopped;
    done.status = JobEnd::Status::Done;
    done.outputBytes = 1048576;
    for (const bool json : {true, false}) {
        std::FILE* out = std::tmpfile();
        BatchReport report(out, out, json, false);
        report.finished(done);
        report.finished(stopped);
        report.summary(false);
        const std::string said = readAll(out);
        std::fclose(out);
        EXPECT_NE(said.find(json ? R"("done":1,"kept_source":0,"skipped":0,"failed":0,"stopped":1,)"
                                 : "1 done, 0 skipped, 0 failed, 1 stopped, 3.0 MB saved"),
                  std::string::npos)
            << said;
    }
}

TEST(BatchReport, TheTerminalLineIsRewrittenInPlaceAndTheEndReplacesIt) {
    // A file is no terminal: the width comes from COLUMNS.
#ifdef _WIN32
    _putenv_s("COLUMNS", "60");
#else
    setenv("COLUMNS", "60", 1);
#endif
    std::FILE* out = std::tmpfile();
    BatchReport report(out, out, false, true);
    const JobView longer = quarterDone(std::string(100, 'n') + ".mp4");
    report.progress(longer);
    JobView shorter = quarterDone("s.mp4");
    shorter.runningSeconds.reset();
    report.progress(shorter);
    JobEnd end;
    end.source = "s.mp4";
    report.finished(end);
    const std::string said = readAll(out);
    std::fclose(out);
    const std::string first = terminalLine(longer, 60);
    EXPECT_EQ(displayColumns(first), 59) << first;
    // Each line blanks what the longer one before it left; no escape sequences.
    EXPECT_EQ(said, "\r" + first + "\rs.mp4  0:00:05  2.50x  1.0 MB" + std::string(59 - 29, ' ') +
                        "\rdone: s.mp4" + std::string(29 - 11, ' ') + "\n");
}

}  // namespace
}  // namespace quillet::cli
