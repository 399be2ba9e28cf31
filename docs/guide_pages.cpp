#include "guide_pages.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace quillet::guide {
namespace {

// How many lines a paragraph starts a page with: its first line is never left alone at the foot
// of a page, nor is a heading left there with only one line of its text.
constexpr int kFirstLinesKept = 2;

// Lays out what an edit left to be laid out, so that every block's lines are known.
void finishLayout(const QTextDocument& guide) {
    guide.documentLayout()->documentSize();
}

qreal lineTop(const QTextBlock& block, int line) {
    return block.document()->documentLayout()->blockBoundingRect(block).top() +
           block.layout()->lineAt(line).y();
}

bool isHeading(const QTextBlock& block) {
    return block.blockFormat().headingLevel() > 0;
}

bool isCode(const QTextBlock& block) {
    return block.isValid() && block.blockFormat().hasProperty(QTextFormat::BlockCodeLanguage);
}

bool inTable(const QTextBlock& block) {
    return QTextCursor(block).currentTable() != nullptr;
}

// The block and line that end what must share a page with `block`'s first line.
struct GroupEnd {
    QTextBlock block;
    int line;
};

GroupEnd groupEnd(const QTextBlock& block) {
    const int lines = block.layout()->lineCount();
    if (isFigure(block)) return {block, lines - 1};
    // Each line of code is a block of its own; the first keeps the second as a paragraph would.
    if (isCode(block) && !isCode(block.previous()) && isCode(block.next())) {
        return {block.next(), 0};
    }
    if (!isHeading(block)) return {block, std::min(kFirstLinesKept, lines) - 1};
    const QTextBlock next = block.next();
    if (!next.isValid() || next.layout()->lineCount() == 0) return {block, lines - 1};
    return groupEnd(next);
}

bool togetherOnOnePage(const QTextBlock& block) {
    finishLayout(*block.document());
    const GroupEnd end = groupEnd(block);
    return pageOfLine(block, 0) == pageOfLine(end.block, end.line);
}

}  // namespace

int pageOfLine(const QTextBlock& block, int line) {
    finishLayout(*block.document());
    return static_cast<int>(
        std::floor(lineTop(block, line) / block.document()->pageSize().height()));
}

bool isFigure(const QTextBlock& block) {
    const QString text = block.text();
    const qsizetype picture = text.indexOf(QChar::ObjectReplacementCharacter);
    if (picture < 0 || !text.left(picture).trimmed().isEmpty()) return false;
    const QString after = text.mid(picture + 1);
    const qsizetype captionStart = after.indexOf(QChar::LineSeparator);
    return after.left(captionStart).trimmed().isEmpty();
}

void keepTogether(QTextDocument& guide) {
    for (QTextBlock block = guide.begin(); block.isValid(); block = block.next()) {
        finishLayout(guide);
        if (inTable(block) || block.layout()->lineCount() == 0) continue;
        if (togetherOnOnePage(block)) continue;
        const QTextBlockFormat before = block.blockFormat();
        QTextBlockFormat newPage = before;
        newPage.setPageBreakPolicy(before.pageBreakPolicy() | QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(block).setBlockFormat(newPage);
        // A group taller than a page runs on from where it was.
        if (!togetherOnOnePage(block)) QTextCursor(block).setBlockFormat(before);
    }
}

}  // namespace quillet::guide
