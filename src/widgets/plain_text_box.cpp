#include "widgets/plain_text_box.h"

#include <QDir>
#include <QMimeData>
#include <QStringList>
#include <QTextDocumentFragment>
#include <QUrl>

namespace quillet {

namespace {

// What of the pasted data goes into the box: paths for files, the text of formatted text.
QString plainTextOf(const QMimeData& source) {
    if (source.hasUrls()) {
        QStringList lines;
        for (const QUrl& url : source.urls()) {
            lines << (url.isLocalFile() ? QDir::toNativeSeparators(url.toLocalFile())
                                        : url.toString());
        }
        return lines.join('\n');
    }
    if (source.hasText()) return source.text();
    if (source.hasHtml()) return QTextDocumentFragment::fromHtml(source.html()).toPlainText();
    return {};
}

}  // namespace

bool PlainTextBox::canInsertFromMimeData(const QMimeData* source) const {
    return source && !isReadOnly() && !plainTextOf(*source).isEmpty();
}

void PlainTextBox::insertFromMimeData(const QMimeData* source) {
    if (!canInsertFromMimeData(source)) return;
    insertPlainText(plainTextOf(*source));
}

}  // namespace quillet
