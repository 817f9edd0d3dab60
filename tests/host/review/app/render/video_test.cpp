// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/video.h"

#include "host/review/cli/exit_status.h"
#include "tests/support/temp_folder.h"

#include <QProcess>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace {

using namespace orvanta::review;
using orvanta::cli::UsageError;
using testing::HasSubstr;
using testing::StartsWith;

QImage Frame(int width, int height, Qt::GlobalColor color) {
    QImage frame(width, height, QImage::Format_RGB32);
    frame.fill(color);
    return frame;
}

class VideoTest : public testing::Test {
protected:
    ~VideoTest() override { qputenv("PATH", path_); }

    /// From now on only the programs of this folder are found.
    void FindOnly(const std::string& where) { qputenv("PATH", where.c_str()); }
    void Install(const std::string& script) {
        folder.Write("ffmpeg", "#!/bin/sh\n" + script);
        std::filesystem::permissions(folder.Path("ffmpeg"), std::filesystem::perms::owner_all);
        FindOnly(folder.Path(""));
    }
    template <typename Failure, typename Action>
    static std::string FailureOf(const Action& action) {
        try {
            action();
            return "did not fail";
        } catch (const Failure& failure) {
            return failure.what();
        }
    }

    orvanta::test::TempFolder folder;

private:
    QByteArray path_ = qgetenv("PATH");
};

TEST(IsVideo, LooksAtTheEnding) {
    EXPECT_TRUE(IsVideo("a.mp4"));
    EXPECT_TRUE(IsVideo("dir/a.WEBM"));
    EXPECT_FALSE(IsVideo("a.png"));
    EXPECT_FALSE(IsVideo("mp4"));
}

/// As ffmpeg itself reads it: size, pixels, rate and number of frames.
std::string Probe(const std::string& file) {
    QProcess probe;
    probe.start("ffprobe", {"-v", "error", "-count_frames", "-show_entries",
                            "stream=width,height,pix_fmt,r_frame_rate,nb_read_frames", "-of", "csv=p=0",
                            QString::fromStdString(file)});
    probe.waitForFinished(-1);
    return probe.readAllStandardOutput().trimmed().toStdString();
}

TEST_F(VideoTest, HoldsAllFramesAtTheirRate) {
    Video video(folder.Path("a.mp4"), 10);
    for (int i = 0; i < 7; ++i) {
        video.Add(Frame(64, 48, i % 2 == 0 ? Qt::red : Qt::blue));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.Path("a.mp4"))); // whole or not at all
    video.Finish();
    EXPECT_EQ(Probe(folder.Path("a.mp4")), "64,48,yuv420p,10/1,7");
}

TEST_F(VideoTest, HasWholePairsOfPixels) {
    Video video(folder.Path("a.webm"), 25);
    video.Add(Frame(33, 21, Qt::green));
    video.Finish();
    EXPECT_THAT(Probe(folder.Path("a.webm")), StartsWith("34,22,yuv420p,25/1,1"));
}

TEST_F(VideoTest, NeedsFfmpeg) {
    FindOnly(folder.Path("none"));
    EXPECT_EQ(FailureOf<UsageError>([&] { Video(folder.Path("a.mp4"), 25); }),
              folder.Path("a.mp4") + ": a video needs ffmpeg, which is not on the PATH (install it, or let "
                                     "--out name a folder for the frames)");
}

TEST_F(VideoTest, IsRefusedWhereItCannotBeWritten) {
    EXPECT_THAT(FailureOf<std::runtime_error>([&] { Video(folder.Path("none/a.mp4"), 25); }),
                HasSubstr("none/a.mp4: cannot be written"));
}

TEST_F(VideoTest, SaysWhatFfmpegSaysWhenItGivesUp) {
    Install("echo \"Unknown encoder 'libx264'\" >&2\nexit 1\n");
    folder.Write("a.mp4", "older");
    EXPECT_EQ(FailureOf<std::runtime_error>([&] {
                  Video video(folder.Path("a.mp4"), 25);
                  for (int i = 0; i < 100; ++i) {
                      video.Add(Frame(200, 200, Qt::red)); // more than a pipe holds
                  }
                  video.Finish();
              }),
              folder.Path("a.mp4") +
                  ": ffmpeg could not make the video: Unknown encoder 'libx264' (let --out "
                  "name a folder for the frames instead)");
    EXPECT_EQ(folder.Read("a.mp4"), "older");
}

TEST_F(VideoTest, IsNoVideoThatFfmpegDidNotWrite) {
    Install("while read -r line; do :; done\nexit 0\n");
    EXPECT_THAT(FailureOf<std::runtime_error>([&] {
                    Video video(folder.Path("a.mp4"), 25);
                    video.Add(Frame(4, 4, Qt::red));
                    video.Finish();
                }),
                HasSubstr("a.mp4: ffmpeg could not make the video"));
    EXPECT_FALSE(std::filesystem::exists(folder.Path("a.mp4")));
}

} // namespace
