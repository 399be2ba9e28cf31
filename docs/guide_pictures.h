#pragma once

// The guide's pictures, loaded from the guide's folder (the document's base URL).

#include <QStringList>

class QTextDocument;

namespace quillet::guide {

// Shows every picture at its own size, or smaller where that is wider than the text beside it or
// taller than `tallest`, keeping its proportions: a picture's pixels are never stretched. A
// picture that stands alone in its paragraph is centred, with its description (the Markdown's
// alternative text) under it as its caption. The document must have its page size set. Returns
// the names of the pictures that could not be read.
QStringList placePictures(QTextDocument& guide, qreal tallest);

}  // namespace quillet::guide
