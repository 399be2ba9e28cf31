#include "guide_pictures.h"

#include <QAbstractTextDocumentLayout>
#include <QImage>
#include <QPixmap>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextTable>
#include <QUrl>
#include <algorithm>
#include <vector>

#include "guide_pages.h"

namespace quillet::guide {
namespace {

struct Picture {
    int position;
    QTextImageFormat format;
    qreal room;  // the width it may take
};

QSizeF naturalSize(QTextDocument& guide, const QString& name) {
    const QVariant loaded = guide.resource(QTextDocument::ImageResource, QUrl(name));
    if (loaded.typeId() == QMetaType::QPixmap) return loaded.value<QPixmap>().size();
    if (loaded.typeId() == QMetaType::QImage) return loaded.value<QImage>().size();
    return {};
}

// The width from where a picture's line starts to the right edge of the page's text (not the
// line's own width, which a picture wider than the page widens to its own). In a table, a
// picture gets its column's share of the page, less the cell's edges.
qreal room(const QTextBlock& block, int position) {
    const QTextDocument* guide = block.document();
    const qreal pageRight = guide->pageSize().width() - guide->documentMargin();
    if (const QTextTable* table = QTextCursor(block).currentTable()) {
        const QTextTableFormat format = table->format();
        const qreal edges =
            2 * (format.cellPadding() + format.cellSpacing() + format.border() + format.margin());
        return (pageRight - guide->documentMargin()) / table->columns() - edges;
    }
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    const qreal left = guide->documentLayout()->blockBoundingRect(block).left() + line.x();
    return pageRight - block.blockFormat().rightMargin() - left;
}

std::vector<Picture> findPictures(const QTextDocument& guide) {
    std::vector<Picture> pictures;
    guide.documentLayout()->documentSize();  // lays the document out, placing every line
    for (QTextBlock block = guide.begin(); block.isValid(); block = block.next()) {
        for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
            const QTextFragment fragment = piece.fragment();
            if (!fragment.charFormat().isImageFormat()) continue;
            // The same picture twice in a row is one fragment of two characters.
            for (int at = fragment.position(); at < fragment.position() + fragment.length(); ++at) {
                pictures.push_back({at, fragment.charFormat().toImageFormat(), room(block, at)});
            }
        }
    }
    return pictures;
}

// Centres a figure and, unless its paragraph already goes on after the picture, writes the
// picture's description under it.
void setAsFigure(const QTextBlock& figure, const QString& caption) {
    QTextCursor cursor(figure);
    QTextBlockFormat centred = figure.blockFormat();
    centred.setAlignment(Qt::AlignHCenter);
    cursor.setBlockFormat(centred);
    if (caption.trimmed().isEmpty() || figure.text().trimmed().size() > 1) return;
    QTextCharFormat captionFormat;
    captionFormat.setFontItalic(true);
    cursor.movePosition(QTextCursor::EndOfBlock);
    cursor.insertText(QString(QChar::LineSeparator) + caption.trimmed(), captionFormat);
}

}  // namespace

QStringList placePictures(QTextDocument& guide, qreal tallest) {
    QStringList unread;
    const std::vector<Picture> pictures = findPictures(guide);
    // From the last picture back, so a caption added never moves a picture still to be placed.
    for (auto picture = pictures.rbegin(); picture != pictures.rend(); ++picture) {
        QTextImageFormat format = picture->format;
        const QSizeF size = naturalSize(guide, format.name());
        if (size.isEmpty()) {
            unread.prepend(format.name());
            continue;
        }
        const qreal scale = std::min({1.0, picture->room / size.width(), tallest / size.height()});
        format.setWidth(size.width() * scale);
        format.setHeight(size.height() * scale);
        QTextCursor cursor(&guide);
        cursor.setPosition(picture->position);
        cursor.setPosition(picture->position + 1, QTextCursor::KeepAnchor);
        cursor.setCharFormat(format);
        const QTextBlock block = guide.findBlock(picture->position);
        if (isFigure(block)) setAsFigure(block, format.stringProperty(QTextFormat::ImageAltText));
    }
    return unread;
}

}  // namespace quillet::guide
