#include "guide_print.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QTextDocument>

namespace quillet::guide {

void printGuide(const QTextDocument& guide, QPdfWriter& pdf) {
    const QSizeF page = guide.pageSize();
    const int pages = guide.pageCount();
    QPainter painter(&pdf);
    // Pictures of windows keep their pixels: text in them blurs when stored as JPEG.
    painter.setRenderHint(QPainter::LosslessImageRendering);
    QFont footerFont = guide.defaultFont();
    footerFont.setPointSizeF(footerFont.pointSizeF() * 0.85);
    for (int index = 0; index < pages; ++index) {
        if (index > 0) pdf.newPage();
        const QRectF onPage(QPointF(0, index * page.height()), page);
        QAbstractTextDocumentLayout::PaintContext context;
        context.clip = onPage;
        context.palette.setColor(QPalette::Text, Qt::black);
        painter.save();
        painter.translate(0, -onPage.top());
        painter.setClipRect(onPage);
        guide.documentLayout()->draw(&painter, context);
        painter.restore();

        painter.setFont(footerFont);
        painter.setPen(Qt::darkGray);
        painter.drawText(QRectF(0, page.height(), page.width(), kFooterHeight),
                         Qt::AlignHCenter | Qt::AlignBottom, QString::number(index + 1));
    }
}

}  // namespace quillet::guide
