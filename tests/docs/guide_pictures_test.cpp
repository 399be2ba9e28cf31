#include "guide_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QTextLayout>

#include "guide_fixture.h"

namespace quillet::guide {
namespace {

using GuidePictures = GuideTest;

QSizeF shownSize(const QTextBlock& block) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
        const QTextCharFormat format = piece.fragment().charFormat();
        if (format.isImageFormat()) {
            return {format.toImageFormat().width(), format.toImageFormat().height()};
        }
    }
    ADD_FAILURE() << "no picture in " << block.text().toStdString();
    return {};
}

TEST_F(GuidePictures, APictureIsShrunkToItsRoomKeepingItsShapeButNeverEnlarged) {
    picture("wide.png", {1000, 500});
    picture("tall.png", {100, 400});
    picture("small.png", {120, 80});
    load(
        "![Wide](wide.png)\n\n![Tall](tall.png)\n\n![Small](small.png)\n\n"
        "1. In a list:\n\n   ![Listed](wide.png)\n");
    ASSERT_TRUE(placePictures(guide_, 200).isEmpty());
    const qreal textWidth = kPage.width() - 2 * guide_.documentMargin();
    EXPECT_EQ(shownSize(blockStarting(kPictureMark)), QSizeF(textWidth, textWidth / 2));
    EXPECT_EQ(shownSize(guide_.begin().next()), QSizeF(50, 200));
    EXPECT_EQ(shownSize(guide_.begin().next().next()), QSizeF(120, 80));

    const QTextBlock listed = guide_.lastBlock();
    const QTextLine line = listed.layout()->lineAt(0);
    const qreal right = guide_.documentLayout()->blockBoundingRect(listed).left() + line.x() +
                        shownSize(listed).width();
    EXPECT_LE(right, kPage.width() - guide_.documentMargin() + 0.5) << "within the right margin";
    EXPECT_LT(shownSize(listed).width(), textWidth);
}

TEST_F(GuidePictures, APictureInATableTakesItsColumnsShareOfThePage) {
    picture("wide.png", {1000, 500});
    load("| picture | text |\n|---|---|\n| ![Wide](wide.png) | Beside it. |\n");
    ASSERT_TRUE(placePictures(guide_, 200).isEmpty());
    EXPECT_LT(shownSize(blockStarting(kPictureMark)).width(), kPage.width() / 2);
}

TEST_F(GuidePictures, APictureAloneIsCentredOverItsDescription) {
    picture("window.png", {100, 50});
    load(
        "![The window at rest](window.png)\n\nSee ![Inline](window.png) "
        "here.\n\n![ ](window.png)\n");
    ASSERT_TRUE(placePictures(guide_, 200).isEmpty());
    const QTextBlock figure = guide_.begin();
    EXPECT_EQ(figure.text(), kPictureMark + QChar::LineSeparator + "The window at rest");
    EXPECT_EQ(figure.blockFormat().alignment(), Qt::AlignHCenter);
    EXPECT_EQ(figure.next().text(), "See " + kPictureMark + " here.");
    EXPECT_EQ(guide_.lastBlock().text(), kPictureMark);
}

TEST_F(GuidePictures, PicturesThatCannotBeReadAreNamed) {
    picture("there.png", {10, 10});
    load("![A](missing.png) ![B](there.png) ![C](also-missing.png)\n");
    EXPECT_EQ(placePictures(guide_, 200), QStringList({"missing.png", "also-missing.png"}));
}

}  // namespace
}  // namespace quillet::guide
