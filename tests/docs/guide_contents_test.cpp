#include "guide_contents.h"

#include <QTextLayout>

#include "guide_fixture.h"
#include "guide_pages.h"

namespace quillet::guide {
namespace {

using GuideContents = GuideTest;

QString sections(int count) {
    QString markdown = "# Guide\n\nWhat the guide is about.\n\n";
    for (int section = 1; section <= count; ++section) {
        markdown += QString("## Section %1\n\n").arg(section) + filler(section % 7) +
                    QString("### Part %1\n\nIts text.\n\n").arg(section);
    }
    return markdown;
}

QString numberOf(const Contents::Entry& entry) {
    return entry.line.text().section('\t', -1);
}

TEST_F(GuideContents, ListsEveryHeadingButTheTitleBetweenTheIntroductionAndTheFirstSection) {
    load(sections(2));
    Contents contents(guide_);
    QStringList lines;
    for (const Contents::Entry& entry : contents.entries()) {
        lines << entry.line.text().section('\t', 0, 0);
        EXPECT_EQ(entry.heading.text(), lines.back());
    }
    EXPECT_EQ(lines, QStringList({"Section 1", "Part 1", "Section 2", "Part 2"}));
    EXPECT_GT(contents.entries()[1].line.blockFormat().leftMargin(),
              contents.entries()[0].line.blockFormat().leftMargin());
    const QTextBlock heading = blockStarting("Contents");
    EXPECT_EQ(heading.blockFormat().headingLevel(), 2);
    EXPECT_TRUE(heading.previous().text().startsWith("What the guide"));
    EXPECT_EQ(heading.next(), contents.entries()[0].line);
}

TEST_F(GuideContents, NumbersAreThePagesTheHeadingsLandOn) {
    // Enough sections for a table that fills pages of its own.
    for (const int count : {3, 30}) {
        load(sections(count));
        Contents contents(guide_);
        planPages(guide_, contents);
        const Contents::Entry& first = contents.entries().front();
        EXPECT_GT(pageOfLine(first.heading, 0), pageOfLine(contents.entries().back().line, 0))
            << "the first section starts after the table";
        for (const Contents::Entry& entry : contents.entries()) {
            EXPECT_EQ(numberOf(entry), QString::number(pageOfLine(entry.heading, 0) + 1))
                << entry.heading.text().toStdString();
        }
        EXPECT_FALSE(contents.number()) << "numbering again changes nothing";
    }
}

TEST_F(GuideContents, AGuideWithoutATitleStartsWithItsContents) {
    load("## First\n\nText.\n\n## Second\n\nMore.\n");
    Contents contents(guide_);
    EXPECT_EQ(guide_.begin().text(), "Contents");
    ASSERT_EQ(contents.entries().size(), 2u);
    EXPECT_EQ(contents.entries()[0].heading.text(), "First");
    EXPECT_EQ(contents.entries()[0].heading.blockFormat().headingLevel(), 2);
    EXPECT_EQ(contents.entries()[0].heading.next().text(), "Text.");
}

TEST_F(GuideContents, AGuideWithoutHeadingsIsLeftAsItIs) {
    load("# Only a title\n\nAnd its text.\n");
    const QString before = guide_.toPlainText();
    Contents contents(guide_);
    EXPECT_TRUE(contents.entries().empty());
    EXPECT_EQ(guide_.toPlainText(), before);
}

}  // namespace
}  // namespace quillet::guide
