// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/cartoon.h"

#include "host/review/app/module_library.h"
#include "host/review/app/render/frame_folder.h"
#include "host/review/app/render/map_rendering.h"
#include "host/review/app/render/picture_file.h"
#include "host/review/app/render/render_application.h"
#include "host/review/app/render/video.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/review/cli/watch.h"
#include "host/spectral_data/results/errors.h"

#include <QFileInfo>

#include <filesystem>
#include <optional>

namespace orvanta::review {

namespace {

/// Where the frames go.
class Film {
public:
    explicit Film(const RenderCartoonRequest& request) {
        if (IsVideo(request.out) && !std::filesystem::is_directory(request.out)) {
            video_.emplace(request.out, request.framesPerSecond);
        } else {
            RequireFolderName(request.out);
            folder_.emplace(request.out);
        }
    }

    void Add(const Picture& picture, std::uint64_t frame, std::uint64_t count) {
        if (video_) {
            video_->Add(PixelsOf(picture));
        } else {
            folder_->Write(frame + 1, count, Encode(picture, PictureFormat::Png));
        }
    }
    void Finish() {
        if (video_) {
            video_->Finish();
        } else {
            folder_->Keep();
        }
    }

private:
    /// Another ending is a wish for a kind of file that is not made.
    static void RequireFolderName(const std::string& out) {
        const QFileInfo info(QString::fromStdString(out));
        if (!info.isDir() && !info.suffix().isEmpty()) {
            throw cli::UsageError(out +
                                  ": no kind of video (let --out end in .mp4 or .webm, or name a folder "
                                  "for the frames)");
        }
    }

    std::optional<Video> video_;
    std::optional<FrameFolder> folder_;
};

} // namespace

int RunRenderCartoon(const RenderCartoonRequest& request) {
    Film film(request);
    const ModuleLibrary module(LibraryFolder());
    MapRendering rendering(request, request.page, true);
    StopWhenInterrupted();
    const RenderApplication application(request.scale);
    const std::string title = std::filesystem::path(request.analysis.file).filename();
    std::uint64_t frames = 0;
    {
        cli::Watch watch("Drawing frames", 0, request.analysis.quiet);
        rendering.DrawCartoon(module.Bridge(), [&](std::uint64_t frame, std::uint64_t count,
                                                   const std::function<void(owl::TDC&)>& draw) {
            StopWhenInterrupted();
            film.Add({{request.width, request.height}, request.scale, title, draw}, frame, count);
            frames = frame + 1;
            watch.SetPosition(static_cast<double>(frames) / static_cast<double>(count));
        });
    }
    if (frames == 0) {
        throw spectral::NothingComputable(request.analysis.file + ": the cartoon has no epochs",
                                          "choose other settings with --macro or --set");
    }
    film.Finish();
    if (!request.analysis.quiet) {
        cli::WriteOutput("-", "written " + request.out + ": " + cli::Counted(frames, "frame") + "\n");
    }
    return cli::kDone;
}

} // namespace orvanta::review
