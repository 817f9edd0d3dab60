// SPDX-License-Identifier: GPL-3.0-or-later
// Videos, which ffmpeg makes where it is installed.
#pragma once

#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

#include <string>

namespace orvanta::review {

/// Whether the name ends in .mp4 or .webm, whatever its case.
bool IsVideo(const std::string& file);

/// A video that is written frame by frame. The file is either the old or the new one, whole.
class Video {
public:
    /// Looks for ffmpeg on the PATH. \throws cli::UsageError when there is none, std::runtime_error when the
    /// file could not be written
    Video(std::string file, double framesPerSecond);
    ~Video();

    /// All of one size. \throws std::runtime_error with what ffmpeg says when it gave up
    void Add(const QImage& frame);
    /// Puts the file in place; the last call. \throws std::runtime_error
    void Finish();

private:
    void Start(const QSize& size);
    [[noreturn]] void Fail();

    std::string file_;
    double framesPerSecond_;
    QString program_;
    QTemporaryDir made_;
    QProcess encoder_;
};

} // namespace orvanta::review
