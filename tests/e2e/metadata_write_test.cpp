// The metadata editor writing tags with the real ffmpeg, read back with ffprobe.
#include <QCryptographicHash>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "job_driver.h"

namespace quillet {
namespace {

class MetadataWrite : public JobDriver {
protected:
    QWidget& openEditor(const QString& source) {
        trigger("mnu_METAdata");
        QWidget& editor = *forms.loaded(FormId::Form2);
        dialogs.answerFile(source.toStdString());
        editor.findChild<QAction*>("mnu_SelVid")->trigger();
        return editor;
    }
    static QLineEdit* field(QWidget& editor, int index) {
        return editor.findChild<QLineEdit*>(QString("Text1(%1)").arg(index));
    }
    // Write Meta Data Into Video, confirmed, until its report has come.
    void write(QWidget& editor) {
        dialogs.answerBox(MessageBoxButton::Yes);
        const std::size_t before = dialogs.shown().size();
        editor.findChild<QAction*>("mnu_WriteMetaData")->trigger();
        ASSERT_GT(dialogs.shown().size(), before);
        EXPECT_EQ(dialogs.shown()[before].title, "Confirm");
        EXPECT_EQ(dialogs.shown()[before].flags, 52);
        EXPECT_TRUE(QTest::qWaitFor(
            [&] {
                return dialogs.shown().size() > before + 1 &&
                       dialogs.shown().back().title == "META Data";
            },
            20000));
    }
    static QByteArray fingerprint(const QString& path) {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
    }
};

TEST_F(MetadataWrite, TagsReachACopyOfTheStreamsExceptTheLastTwo) {
    const QString source = folder.filePath("my clip é.mp4");
    ASSERT_TRUE(makeClip(source, 2));
    const QByteArray original = fingerprint(source);
    QWidget& editor = openEditor(source);
    field(editor, 0)->setText("  Holiday 日本 ");
    field(editor, 1)->setText("Ann");
    editor.findChild<QPlainTextEdit*>("Text1(7)")
        ->setPlainText("a long comment " + QString(500, 'x'));
    field(editor, 5)->setText("2026");
    field(editor, 21)->setText("1");  // gapless playback
    field(editor, 22)->setText("1");  // compilation
    write(editor);
    EXPECT_EQ(field(editor, 0)->text(), "");  // cleared after the write

    const QString tags =
        runTool("ffprobe", {"-v", "error", "-show_entries", "format_tags:stream=codec_name", "-of",
                            "default=noprint_wrappers=1", output(source)});
    EXPECT_TRUE(tags.contains("TAG:title=Holiday 日本\n")) << tags.toStdString();
    EXPECT_TRUE(tags.contains("TAG:artist=Ann"));
    EXPECT_TRUE(tags.contains("TAG:date=2026"));
    EXPECT_TRUE(tags.contains("TAG:comment=a long comment xxx"));
    EXPECT_FALSE(tags.contains("gapless", Qt::CaseInsensitive));
    EXPECT_FALSE(tags.contains("compilation", Qt::CaseInsensitive));
    // Copied, not re-encoded: the source's own codecs.
    EXPECT_TRUE(tags.contains("codec_name=mpeg4"));
    EXPECT_TRUE(tags.contains("codec_name=aac"));

    // A second write overwrites the copy, from the same source, which never changes.
    field(editor, 0)->setText("Second");
    write(editor);
    EXPECT_TRUE(runTool("ffprobe", {"-v", "error", "-show_entries", "format_tags=title", "-of",
                                    "default=noprint_wrappers=1", output(source)})
                    .contains("TAG:title=Second"));
    EXPECT_EQ(fingerprint(source), original);
}

TEST_F(MetadataWrite, AQuoteInAValueWritesNothingAnywhere) {
    // The quote leaves the rest of the command inside quotes, so the output path reaches ffmpeg cut
    // at its blank: "my" joins the last tag and "clip.mp4" comes as an output of its own, relative,
    // which lands in ffmpeg's own scratch folder and goes with it.
    const QString source = folder.filePath("my clip.mp4");
    ASSERT_TRUE(makeClip(source, 1));
    const QStringList before = QDir(folder.path()).entryList(QDir::Files);
    const QStringList here = QDir::current().entryList(QDir::Files);
    QWidget& editor = openEditor(source);
    field(editor, 0)->setText("say \"hi");
    write(editor);
    EXPECT_EQ(dialogs.shown().back().text, "Meta Data successfully written into Video");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), before);
    EXPECT_EQ(QDir::current().entryList(QDir::Files), here);
}

TEST_F(MetadataWrite, ASourceFfmpegCannotReadEndsWithTheSameReportAndNoCopy) {
    const QString source = folder.filePath("notes.mp4");
    QFile notes(source);
    ASSERT_TRUE(notes.open(QIODevice::WriteOnly));
    notes.write("a text file, not a video\n");
    notes.close();
    QWidget& editor = openEditor(source);
    write(editor);
    EXPECT_EQ(dialogs.shown().back().text, "Meta Data successfully written into Video");
    EXPECT_FALSE(QFile::exists(output(source)));
}

}  // namespace
}  // namespace quillet
