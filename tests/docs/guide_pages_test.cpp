#include "guide_pages.h"

#include <QTextLayout>

#include "guide_fixture.h"
#include "guide_pictures.h"

namespace quillet::guide {
namespace {

using GuidePages = GuideTest;

int lastPage(const QTextBlock& block) {
    return pageOfLine(block, block.layout()->lineCount() - 1);
}

const QString kLongParagraph =
    "A paragraph long enough to wrap over several lines of a narrow page, so that a page may end "
    "inside it; its first lines belong with the heading above it and the rest may run on.\n\n";

TEST_F(GuidePages, AHeadingStaysWithTheFirstTwoLinesOfItsTextWhereverItWouldLand) {
    bool breakNeeded = false;
    for (int lines = 0; lines < 30; ++lines) {
        load(filler(lines) + "## Heading\n\n" + kLongParagraph + "## Next\n\n" + kLongParagraph);
        const QTextBlock heading = blockStarting("Heading");
        const QTextBlock text = heading.next();
        ASSERT_GE(text.layout()->lineCount(), 3);
        breakNeeded |= pageOfLine(heading, 0) != pageOfLine(text, 1);
        keepTogether(guide_);
        EXPECT_EQ(pageOfLine(heading, 0), pageOfLine(text, 1)) << lines << " lines before";
        EXPECT_EQ(pageOfLine(blockStarting("Next"), 0),
                  pageOfLine(blockStarting("Next").next(), 1));
    }
    EXPECT_TRUE(breakNeeded) << "no heading ever landed at the foot of a page";
}

TEST_F(GuidePages, NeitherAParagraphNorCodeLeavesItsFirstLineAloneAtTheFootOfAPage) {
    const QString code = "```sh\nfirst --line\nsecond --line\nthird --line\n```\n";
    // Pages of every height within a few lines, so the page ends at every line of the text.
    for (qreal height = 150; height < 300; height += 2) {
        load(filler(8) + kLongParagraph, {kPage.width(), height});
        keepTogether(guide_);
        const QTextBlock paragraph = guide_.lastBlock();
        EXPECT_EQ(pageOfLine(paragraph, 0), pageOfLine(paragraph, 1)) << "page height " << height;

        load(filler(8) + code, {kPage.width(), height});
        keepTogether(guide_);
        const QTextBlock first = blockStarting("first");
        EXPECT_EQ(pageOfLine(first, 0), pageOfLine(first.next(), 0)) << "page height " << height;
    }
}

TEST_F(GuidePages, HeadingsInARowStayWithTheTextUnderTheLast) {
    for (int lines = 0; lines < 30; ++lines) {
        load(filler(lines) + "## Section\n\n### Part\n\nIts text.\n");
        keepTogether(guide_);
        const int page = pageOfLine(blockStarting("Section"), 0);
        EXPECT_EQ(pageOfLine(blockStarting("Part"), 0), page) << lines << " lines before";
        EXPECT_EQ(pageOfLine(blockStarting("Its text"), 0), page) << lines << " lines before";
    }
}

TEST_F(GuidePages, APictureStaysWithItsHeadingAndCaption) {
    picture("window.png", {300, 150});
    for (int lines = 0; lines < 30; ++lines) {
        load(filler(lines) + "## Window\n\n![The window](window.png)\n\nAfter.\n");
        ASSERT_TRUE(placePictures(guide_, kPage.height() / 2).isEmpty());
        keepTogether(guide_);
        const QTextBlock heading = blockStarting("Window");
        const QTextBlock figure = heading.next();
        ASSERT_TRUE(isFigure(figure));
        EXPECT_EQ(pageOfLine(heading, 0), lastPage(figure)) << lines << " lines before";
    }
}

TEST_F(GuidePages, WhatFitsOnePageGetsNoBreak) {
    load("# Title\n\n## One\n\nText.\n\n## Two\n\nText.\n");
    keepTogether(guide_);
    EXPECT_EQ(guide_.pageCount(), 1);
}

TEST_F(GuidePages, AGroupTallerThanAPageRunsOnWhereItIs) {
    picture("tall.png", {100, 600});
    load(filler(3) + "## Tall\n\n![A tall window](tall.png)\n");
    ASSERT_TRUE(placePictures(guide_, 2 * kPage.height()).isEmpty());
    keepTogether(guide_);
    EXPECT_EQ(blockStarting("Tall").blockFormat().pageBreakPolicy(), QTextFormat::PageBreak_Auto);
    EXPECT_EQ(pageOfLine(blockStarting("Tall"), 0), 0);
}

TEST(GuideFigures, AFigureIsAPictureAloneWithAtMostItsCaption) {
    const QString picture = kPictureMark;
    QTextDocument guide;
    for (const auto& [text, figure] : std::initializer_list<std::pair<QString, bool>>{
             {picture, true},
             {picture + QChar::LineSeparator + "Caption", true},
             {"See " + picture, false},
             {picture + " and text", false},
             {"Text", false}}) {
        guide.setPlainText(text);
        EXPECT_EQ(isFigure(guide.begin()), figure) << text.toStdString();
    }
}

}  // namespace
}  // namespace quillet::guide
