#pragma once

#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>

namespace quillet::guide {

// The character that stands for a picture in a block's text.
inline const QString kPictureMark{QChar::ObjectReplacementCharacter};

// One-line paragraphs that push what follows them down the page.
inline QString filler(int lines) {
    QString text;
    for (int line = 0; line < lines; ++line) text += QString("Line %1.\n\n").arg(line);
    return text;
}

// A guide laid out on small pages, reading its pictures from a folder of its own.
class GuideTest : public ::testing::Test {
protected:
    static constexpr QSizeF kPage{400, 300};

    void picture(const QString& name, QSize size) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::gray);
        ASSERT_TRUE(image.save(folder_.filePath(name)));
    }

    QTextDocument& load(const QString& markdown, QSizeF page = kPage) {
        guide_.setBaseUrl(QUrl::fromLocalFile(folder_.path() + '/'));
        guide_.setMarkdown(markdown);
        guide_.setPageSize(page);
        guide_.pageCount();  // lays it out
        return guide_;
    }

    QTextBlock blockStarting(const QString& text) const {
        for (QTextBlock block = guide_.begin(); block.isValid(); block = block.next()) {
            if (block.text().startsWith(text)) return block;
        }
        ADD_FAILURE() << "no block starts with " << text.toStdString();
        return {};
    }

    QTextDocument guide_;

private:
    QTemporaryDir folder_;
};

}  // namespace quillet::guide
