// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/video.h"

#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <stdexcept>
#include <utility>

namespace orvanta::review {

namespace {

constexpr int kNoLimit = -1;

QString EndingOf(const std::string& file) {
    return QFileInfo(QString::fromStdString(file)).suffix().toLower();
}

/// Codecs that players and browsers know.
QStringList CodecFor(const QString& ending) {
    return ending == "webm" ? QStringList{"-c:v", "libvpx-vp9", "-crf", "24", "-b:v", "0", "-row-mt", "1"}
                            : QStringList{"-c:v", "libx264", "-crf", "18", "-movflags", "+faststart"};
}

QString RequiredEncoder(const std::string& file) {
    QString program = QStandardPaths::findExecutable("ffmpeg");
    if (program.isEmpty()) {
        throw cli::UsageError(file + ": a video needs ffmpeg, which is not on the PATH (install it, or let "
                                     "--out name a folder for the frames)");
    }
    return program;
}

} // namespace

bool IsVideo(const std::string& file) {
    return QStringList{"mp4", "webm"}.contains(EndingOf(file));
}

Video::Video(std::string file, double framesPerSecond)
    : file_(std::move(file)), framesPerSecond_(framesPerSecond), program_(RequiredEncoder(file_)) {
    cli::CheckWritable(file_);
    if (!made_.isValid()) {
        throw std::runtime_error("temporary folder: " + made_.errorString().toStdString() +
                                 " (free some space there, or set TMPDIR)");
    }
}

Video::~Video() {
    if (encoder_.state() != QProcess::NotRunning) {
        encoder_.kill();
        encoder_.waitForFinished(kNoLimit);
    }
}

void Video::Start(const QSize& size) {
    const QString ending = EndingOf(file_);
    QStringList arguments{"-hide_banner", "-loglevel", "error", "-f", "rawvideo", "-pixel_format", "bgra",
                          "-video_size", QString("%1x%2").arg(size.width()).arg(size.height()), "-framerate",
                          QString::number(framesPerSecond_), "-i", "-",
                          // Colours are stored for pairs of pixels.
                          "-vf", "pad=ceil(iw/2)*2:ceil(ih/2)*2:color=white", "-pix_fmt", "yuv420p"};
    arguments << CodecFor(ending) << made_.filePath("video." + ending);
    encoder_.setStandardOutputFile(QProcess::nullDevice());
    encoder_.start(program_, arguments);
    if (!encoder_.waitForStarted(kNoLimit)) {
        Fail();
    }
}

void Video::Add(const QImage& frame) {
    if (encoder_.state() == QProcess::NotRunning) {
        Start(frame.size());
    }
    const QImage pixels = frame.convertToFormat(QImage::Format_RGB32);
    encoder_.write(reinterpret_cast<const char*>(pixels.constBits()), pixels.sizeInBytes());
    while (encoder_.bytesToWrite() > 0) {
        if (!encoder_.waitForBytesWritten(kNoLimit)) {
            Fail();
        }
    }
}

void Video::Finish() {
    encoder_.closeWriteChannel();
    if (encoder_.state() != QProcess::NotRunning) {
        encoder_.waitForFinished(kNoLimit);
    }
    QFile video(made_.filePath("video." + EndingOf(file_)));
    if (encoder_.exitStatus() != QProcess::NormalExit || encoder_.exitCode() != 0 ||
        !video.open(QIODevice::ReadOnly) || video.size() == 0) {
        Fail();
    }
    cli::WriteOutput(file_, video.readAll().toStdString());
}

void Video::Fail() {
    encoder_.closeWriteChannel();
    if (encoder_.state() != QProcess::NotRunning) {
        encoder_.waitForFinished(kNoLimit);
    }
    QString said = QString::fromUtf8(encoder_.readAllStandardError()).simplified();
    if (said.isEmpty()) {
        said = encoder_.errorString();
    }
    throw std::runtime_error(file_ + ": ffmpeg could not make the video: " + said.toStdString() +
                             " (let --out name a folder for the frames instead)");
}

} // namespace orvanta::review
