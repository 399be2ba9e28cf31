#include "tools/program_lookup.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace quillet {
namespace {

using Words = std::vector<std::string>;

TEST(ResolveProgram, FindsTheProgramAsWindowsDoes) {
    const std::set<std::string> executables = {
        "/opt/tools/ffmpeg", "/opt/my tools/ffmpeg", "/opt/my", "/usr/bin/ffprobe",
        "./local",           "/a b/c d/run",         "/x y/z"};
    const auto isExecutable = [&](const std::string& path) { return executables.count(path) > 0; };
    const struct {
        std::string line;
        std::string file;  // empty: nothing to run
        Words arguments;
    } cases[] = {
        {"/opt/tools/ffmpeg -i \"a b.mp4\" -y",
         "/opt/tools/ffmpeg",
         {"/opt/tools/ffmpeg", "-i", "a b.mp4", "-y"}},
        // The shortest prefix that names an executable wins, blank by blank.
        {"/opt/my tools/ffmpeg -y", "/opt/my", {"/opt/my", "tools/ffmpeg", "-y"}},
        {"/a b/c d/run -v x", "/a b/c d/run", {"/a b/c d/run", "-v", "x"}},
        {"  /x y/z", "/x y/z", {"/x y/z"}},
        {"/x  y/z", "", {}},
        {"\"/opt/my tools/ffmpeg\" -y", "/opt/my tools/ffmpeg", {"/opt/my tools/ffmpeg", "-y"}},
        {"\"/opt/my tools/ffmpeg\"-y", "/opt/my tools/ffmpeg", {"/opt/my tools/ffmpeg", "-y"}},
        {"\"/opt/my tools/ffmpeg", "/opt/my tools/ffmpeg", {"/opt/my tools/ffmpeg"}},
        {"\"/opt/my\" tools", "/opt/my", {"/opt/my", "tools"}},
        // A bare name is looked for along the search path, an empty entry meaning here.
        {"ffprobe -v error", "/usr/bin/ffprobe", {"ffprobe", "-v", "error"}},
        {"local", "./local", {"local"}},
        {"/missing/ffmpeg -y", "", {}},
        {"nothing", "", {}},
        {"", "", {}},
        {"\"\" -y", "", {}},
    };
    for (const auto& c : cases) {
        const auto call = resolveProgram(c.line, "/usr/local/bin:/usr/bin:", isExecutable);
        if (c.file.empty()) {
            EXPECT_FALSE(call) << c.line;
            continue;
        }
        ASSERT_TRUE(call) << c.line;
        EXPECT_EQ(call->file, c.file) << c.line;
        EXPECT_EQ(call->arguments, c.arguments) << c.line;
    }
}

}  // namespace
}  // namespace quillet
