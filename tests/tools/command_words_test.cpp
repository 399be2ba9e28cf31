#include "tools/command_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quillet {
namespace {

using Words = std::vector<std::string>;

TEST(SplitArguments, FollowsTheWindowsRules) {
    const struct {
        std::string line;
        Words words;
    } cases[] = {
        {"", {}},
        {"  \t ", {}},
        {"-i  a.mp4\t-y", {"-i", "a.mp4", "-y"}},
        {R"("C:\My Videos\a b.mp4" -y)", {R"(C:\My Videos\a b.mp4)", "-y"}},
        {R"(a"b c"d)", {"ab cd"}},
        {R"(a "" b)", {"a", "", "b"}},
        {R"(C:\dir\ "x\\")", {R"(C:\dir\)", R"(x\)"}},
        {R"(a\\\"b)", {R"(a\"b)"}},
        {R"(a\\\\"b c")", {R"(a\\b c)"}},
        {R"(a\\\b)", {R"(a\\\b)"}},
        {R"("a ""quoted"" word")", {R"(a "quoted" word)"}},
        {R"("unbalanced to the end)", {"unbalanced to the end"}},
        {R"(x "y z)", {"x", "y z"}},
        {R"(\)", {R"(\)"}},
    };
    for (const auto& c : cases) EXPECT_EQ(splitArguments(c.line), c.words) << c.line;
}

TEST(QuoteArgument, LeavesOrdinaryPathsAsTheCommandLinesShowThem) {
    EXPECT_EQ(quoteArgument(R"(C:\Users\Ann\Desktop\My clip.mp4)"),
              R"("C:\Users\Ann\Desktop\My clip.mp4")");
    EXPECT_EQ(quoteArgument("/home/ann/My clip.mp4"), R"("/home/ann/My clip.mp4")");
    EXPECT_EQ(quoteArgument(R"(a"b)"), R"("a\"b")");
    EXPECT_EQ(quoteArgument(R"(C:\dir\)"), R"("C:\dir\\")");
}

TEST(QuoteArgument, SplitsBackToExactlyTheText) {
    const std::string texts[] = {
        "",      "plain",      "two  blanks ",  R"(a"b)",  R"(")",     R"("")",
        R"(\)",  R"(C:\dir\)", R"(\\server\x)", R"(a\"b)", R"(a\\"b)", R"(end\\)",
        "\ttab", R"(x" -y ")", R"(q""uote)",    "a\\\\\"", R"(""a"")",
    };
    for (const std::string& text : texts) {
        EXPECT_EQ(splitArguments(quoteArgument(text)), Words{text}) << text;
        EXPECT_EQ(splitArguments("-i " + quoteArgument(text) + " -y"), (Words{"-i", text, "-y"}))
            << text;
    }
    const Words all(std::begin(texts), std::end(texts));
    EXPECT_EQ(splitArguments(joinArguments(all)), all);
}

}  // namespace
}  // namespace quillet
