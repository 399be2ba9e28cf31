#pragma once

// Prints the guide into a PDF, page by page, with each page's number at its foot.

#include <QtGlobal>

class QPdfWriter;
class QTextDocument;

namespace quillet::guide {

// The height kept under each page's text for its number.
inline constexpr qreal kFooterHeight = 28;

// The guide's pages must be as wide as the writer's printable area and kFooterHeight shorter, in
// the writer's own units (its resolution must match the document's, as neither is scaled).
void printGuide(const QTextDocument& guide, QPdfWriter& pdf);

}  // namespace quillet::guide
