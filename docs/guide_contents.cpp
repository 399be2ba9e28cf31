#include "guide_contents.h"

#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <algorithm>
#include <utility>

#include "guide_pages.h"

namespace quillet::guide {
namespace {

// How far each level of heading is indented under the one above it.
constexpr qreal kIndentPerLevel = 24;

// Numbering can move a heading only by changing how a line of the table wraps, which settles at
// once; the bound only guards against a layout that never settles.
constexpr int kMostNumberings = 8;

std::vector<QTextBlock> listedHeadings(const QTextDocument& guide) {
    std::vector<QTextBlock> headings;
    for (QTextBlock block = guide.begin(); block.isValid(); block = block.next()) {
        const int level = block.blockFormat().headingLevel();
        const bool title = level == 1 && block == guide.begin();
        if (level > 0 && !title) headings.push_back(block);
    }
    return headings;
}

int topLevel(const std::vector<QTextBlock>& headings) {
    int top = headings.front().blockFormat().headingLevel();
    for (const QTextBlock& heading : headings) {
        top = std::min(top, heading.blockFormat().headingLevel());
    }
    return top;
}

QTextBlockFormat lineFormat(const QTextDocument& guide, int depth) {
    QTextBlockFormat format;
    format.setLeftMargin(depth * kIndentPerLevel);
    const qreal right = guide.pageSize().width() - 2 * guide.documentMargin() - format.leftMargin();
    format.setTabPositions({QTextOption::Tab(right, QTextOption::RightTab)});
    format.setTopMargin(depth == 0 ? 6 : 2);
    return format;
}

}  // namespace

Contents::Contents(QTextDocument& guide) {
    const std::vector<QTextBlock> headings = listedHeadings(guide);
    if (headings.empty()) return;
    const int top = topLevel(headings);
    std::vector<std::pair<QString, QTextBlockFormat>> lines;
    for (const QTextBlock& heading : headings) {
        lines.emplace_back(heading.text() + '\t',
                           lineFormat(guide, heading.blockFormat().headingLevel() - top));
    }

    // The first heading moves on into a block of its own, leaving an empty block with its
    // formats in which the table's heading is written.
    const QTextBlock first = headings.front();
    const int at = first.position();
    const QTextCharFormat headingText = first.begin().fragment().charFormat();
    QTextCursor cursor(first);
    cursor.insertBlock(first.blockFormat(), first.charFormat());
    cursor.setPosition(at);
    cursor.insertText("Contents", headingText);
    for (const auto& [text, format] : lines) {
        cursor.insertBlock(format, QTextCharFormat());
        cursor.insertText(text, QTextCharFormat());
    }

    const std::vector<QTextBlock> moved = listedHeadings(guide);
    QTextBlock line = moved.front().next();
    for (auto heading = moved.begin() + 1; heading != moved.end(); ++heading, line = line.next()) {
        entries_.push_back({line, *heading});
    }
    QTextBlockFormat newPage = entries_.front().heading.blockFormat();
    newPage.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextCursor(entries_.front().heading).setBlockFormat(newPage);
}

bool Contents::number() {
    bool changed = false;
    for (const Entry& entry : entries_) {
        const QString page = QString::number(pageOfLine(entry.heading, 0) + 1);
        const QString text = entry.line.text();
        const qsizetype numberStart = text.lastIndexOf('\t') + 1;
        if (text.mid(numberStart) == page) continue;
        QTextCursor cursor(entry.line);
        cursor.setPosition(entry.line.position() + numberStart);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        cursor.insertText(page);
        changed = true;
    }
    return changed;
}

void planPages(QTextDocument& guide, Contents& contents) {
    for (int round = 0; round < kMostNumberings; ++round) {
        keepTogether(guide);
        if (!contents.number()) return;
    }
}

}  // namespace quillet::guide
