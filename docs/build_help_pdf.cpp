// Turns the Markdown user guide into the PDF that the program's Help command opens, at build time,
// with Qt's own PDF writer: a table of contents first, the pictures the guide shows (read from
// the guide's folder), and page breaks that keep each heading with its text.
// Usage: build_help_pdf GUIDE.md OUTPUT.pdf
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>
#include <cstdio>

#include "guide_contents.h"
#include "guide_pictures.h"
#include "guide_print.h"

namespace {

// A picture may take this share of a page's height, leaving room for its heading and caption.
constexpr qreal kTallestPicture = 0.75;

// Headings stand further from the text above them than from their own text.
void spaceHeadings(QTextDocument& guide) {
    for (QTextBlock block = guide.begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        if (level < 2) continue;
        QTextBlockFormat format = block.blockFormat();
        format.setTopMargin(level == 2 ? 18 : 12);
        format.setBottomMargin(level == 2 ? 6 : 4);
        QTextCursor(block).setBlockFormat(format);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // The document is laid out and printed in the same units, whatever screen the writer sees.
    QCoreApplication::setAttribute(Qt::AA_Use96Dpi);
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fputs("usage: build_help_pdf GUIDE.md OUTPUT.pdf\n", stderr);
        return 2;
    }
    const QString guidePath = QString::fromLocal8Bit(argv[1]);
    QFile guideFile(guidePath);
    if (!guideFile.open(QIODevice::ReadOnly | QIODevice::Text)) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 1;
    }

    QPdfWriter pdf(QString::fromLocal8Bit(argv[2]));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setResolution(96);
    pdf.setTitle("Quillet 2.0 user guide");
    pdf.setPageMargins(QMarginsF(20, 20, 20, 15), QPageLayout::Millimeter);
    QSizeF page = pdf.pageLayout().paintRectPixels(pdf.resolution()).size();
    page.rheight() -= quillet::guide::kFooterHeight;

    QTextDocument guide;
    guide.setBaseUrl(QUrl::fromLocalFile(QFileInfo(guidePath).absoluteDir().path() + '/'));
    guide.setMarkdown(QString::fromUtf8(guideFile.readAll()));
    guide.setPageSize(page);
    spaceHeadings(guide);
    const QStringList unread =
        quillet::guide::placePictures(guide, page.height() * kTallestPicture);
    for (const QString& picture : unread) {
        std::fprintf(stderr, "cannot read the picture %s\n", qPrintable(picture));
    }
    if (!unread.isEmpty()) return 1;
    quillet::guide::Contents contents(guide);
    quillet::guide::planPages(guide, contents);
    quillet::guide::printGuide(guide, pdf);
    return 0;
}
