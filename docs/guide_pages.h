#pragma once

// Where the guide's lines land on its pages, and the page breaks that keep what belongs together
// on one page. Pages are read from the document's own layout, so the document must have its page
// size set.

class QTextBlock;
class QTextDocument;

namespace quillet::guide {

// The page (from 0) on which a line of a block is printed.
int pageOfLine(const QTextBlock& block, int line);

// A block that holds one picture and nothing else (with, once placed, its caption under it).
bool isFigure(const QTextBlock& block);

// Breaks the page before what would otherwise be torn apart: a paragraph's (or a piece of code's)
// first line is not left alone at the foot of a page, a heading stays on the page of the first two
// lines of the text that follows it (all of it when that is a picture), and a picture stays on the
// page of its caption. A group taller than a page runs on from where it is. Breaks are only ever
// added, from the start of the guide on, so breaks made earlier still hold.
void keepTogether(QTextDocument& guide);

}  // namespace quillet::guide
