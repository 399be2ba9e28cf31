#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

namespace quillet {

// Runs a tool from the test program's folder and returns what it printed; empty on failure.
inline QString runTool(const QString& tool, const QStringList& arguments) {
    QProcess process;
    process.start(QCoreApplication::applicationDirPath() + "/" + tool, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) return {};
    return QString::fromUtf8(process.readAllStandardOutput());
}

// A small clip made by ffmpeg: a test picture and a sine tone.
inline bool makeClip(const QString& path, int seconds) {
    const QString length = QString::number(seconds);
    runTool("ffmpeg", {"-v", "error", "-y", "-f", "lavfi", "-i",
                       "testsrc2=size=320x180:rate=10:duration=" + length, "-f", "lavfi", "-i",
                       "sine=frequency=440:duration=" + length, "-c:v", "mpeg4", "-c:a", "aac",
                       "-shortest", path});
    return QFile::exists(path);
}

// Stream codecs, sample and frame rates and duration, one "key=value" a line, as ffprobe reports
// them.
inline QString probe(const QString& path) {
    return runTool("ffprobe", {"-v", "error", "-show_entries",
                               "stream=codec_name,sample_rate,r_frame_rate:format=duration", "-of",
                               "default=noprint_wrappers=1", path});
}

}  // namespace quillet
