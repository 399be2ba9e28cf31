#include <QCheckBox>
#include <QCoreApplication>
#include <QFile>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTimer>
#include <set>

#include "base/platform_names.h"
#include "job_driver.h"
#include "jobs/output_name.h"

namespace quillet {
namespace {

struct JobCase {
    const char* name;
    int method;  // xpOption1 item
    FormId window;
    const char* sampleRate;
};

class CompressionJob : public JobDriver {
protected:
    // What choosing a source does (see File > Select Video), with a source size of 4 MB so that
    // the tiny test clips get a target size.
    void chooseSource(const QString& path, const char* seconds) {
        state.SourceVideo = QDir::toNativeSeparators(path).toStdString();
        state.OutputVideo =
            compressedFileName(state.SourceVideo, kThisPlatform.separator).value_or("");
        c.Text6->setText("0,004");
        c.Text8->setText(seconds);
        form.enableMethodItems();
    }

    // Starts the job with Compress > Start Compression and returns once it has ended and its
    // window has gone, with every progress caption shown meanwhile.
    std::set<QString> runJob(const JobCase& job) {
        if (QString(job.sampleRate) == "48000") c.Option1->item(1)->click();
        std::set<QString> captions;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&] { captions.insert(c.Label1->text()); });
        watch.start(10);
        startJob(job.method);
        EXPECT_TRUE(waitForJobEnd(job.window)) << job.name;
        return captions;
    }
};

const JobCase kJobs[] = {
    {"TFS", 0, FormId::Form5, "44100"},
    {"CRF", 1, FormId::Form6, "48000"},
    {"ABR", 2, FormId::Form7, "44100"},
    {"QP", 3, FormId::Form8, "48000"},
};

TEST_F(CompressionJob, EachMethodWritesHevcWithAacBesideTheSource) {
    for (const JobCase& job : kJobs) {
        const QString source = folder.filePath(QString("clip-%1.mp4").arg(job.name));
        ASSERT_TRUE(makeClip(source, 3));
        chooseSource(source, "3");
        const std::set<QString> captions = runJob(job);

        const QString shown = probe(output(source));
        EXPECT_TRUE(shown.contains("codec_name=hevc")) << job.name << shown.toStdString();
        EXPECT_TRUE(shown.contains("codec_name=aac")) << job.name;
        EXPECT_TRUE(shown.contains(QString("sample_rate=") + job.sampleRate)) << job.name;
        EXPECT_TRUE(shown.contains(QRegularExpression("duration=(2\\.9|3\\.0)"))) << job.name;
        // The ABR job does not follow the time, so only the others move the caption.
        const bool moved = std::any_of(captions.begin(), captions.end(), [](const QString& text) {
            return QRegularExpression(R"(^Compression Progress \d\d+\.\d\d% Completed$)")
                       .match(text)
                       .hasMatch() &&
                   text != "Compression Progress 00.00% Completed";
        });
        EXPECT_EQ(moved, job.method != 2) << job.name;

        // The job has ended: its window is gone and the main window is reset for the next one.
        EXPECT_FALSE(forms.isLoaded(job.window)) << job.name;
        EXPECT_TRUE(state.JobFinished) << job.name;
        EXPECT_EQ(state.SourceVideo, "") << job.name;
        EXPECT_EQ(text(c.Text8), "0000") << job.name;
        // Only the target-size and CRF windows empty the progress bar at the end.
        if (job.method < 2) {
            EXPECT_EQ(c.PBar->value(), 0) << job.name;
        }
    }
}

TEST_F(CompressionJob, PlayOnCompletionOpensTheOutputOncePerJob) {
    const QString source = folder.filePath("played.mp4");
    ASSERT_TRUE(makeClip(source, 2));
    c.Check1->setChecked(true);
    for (int job = 1; job <= 2; ++job) {
        chooseSource(source, "2");
        runJob(kJobs[1]);
        const auto opened = std::count_if(
            dialogs.shown().begin(), dialogs.shown().end(), [&](const ScriptedDialogs::Shown& s) {
                return s.kind == "open externally" &&
                       s.text == QDir::toNativeSeparators(output(source)).toStdString();
            });
        EXPECT_EQ(opened, job);
    }
}

TEST_F(CompressionJob, PathsWithBlanksAndNonAsciiLettersWork) {
    for (const JobCase& job : {kJobs[0], kJobs[1]}) {
        QDir(folder.path()).mkpath("my clips/é 日本");
        const QString source =
            folder.filePath(QString("my clips/é 日本/clip %1 é.mp4").arg(job.name));
        ASSERT_TRUE(makeClip(source, 2));
        chooseSource(source, "2");
        runJob(job);
        EXPECT_TRUE(probe(output(source)).contains("codec_name=hevc")) << job.name;
    }
}

TEST_F(CompressionJob, SourcesThatAreNoVideoRunToTheEndAndReset) {
    const QString notVideo = folder.filePath("notes.mp4");
    const QString empty = folder.filePath("empty.mp4");
    QFile notes(notVideo);
    ASSERT_TRUE(notes.open(QIODevice::WriteOnly));
    notes.write("a text file, not a video\n");
    notes.close();
    QFile(empty).open(QIODevice::WriteOnly);
    for (const QString& source : {notVideo, empty}) {
        chooseSource(source, "3");
        runJob(kJobs[0]);
        EXPECT_FALSE(forms.isLoaded(FormId::Form5));
        EXPECT_EQ(state.SourceVideo, "");
        EXPECT_EQ(text(c.Label1), "Compression Progress 00% Completed");
    }
}

}  // namespace
}  // namespace quillet
