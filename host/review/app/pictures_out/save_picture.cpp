// SPDX-License-Identifier: GPL-3.0-or-later
// Into a file, to the clipboard.
#include "host/chart_view/the_child.h"
#include "host/platform/atomic_file.h"
#include "host/review/app/main_window/host_text.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/review/app/pictures_out/picture_dialog.h"
#include "host/review/app/pictures_out/view_picture.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/services.h"
#include "host/toolkit/wait_cursor.h"
#include "spectra_contract/file_path.h"

#include <QImage>
#include <QPointer>

#include <algorithm>
#include <array>

namespace orvanta::review {

namespace {

constexpr const char* kFolder = "PictureFolder";
/// Of what a view draws as pixels in a drawing that can be enlarged.
constexpr double kVectorFineness = 3;

struct FormatName {
    PictureFormat format;
    std::string ending, text;
};

/// The chosen format first.
std::array<FormatName, 3> FormatNames(PictureFormat chosen) {
    std::array names = {FormatName{PictureFormat::Png, "png", HostText("picturesPng", "PNG pictures")},
                        FormatName{PictureFormat::Svg, "svg", HostText("picturesSvg", "SVG drawings")},
                        FormatName{PictureFormat::Pdf, "pdf", HostText("picturesPdf", "PDF documents")}};
    std::stable_partition(names.begin(), names.end(),
                          [chosen](const FormatName& one) { return one.format == chosen; });
    return names;
}

std::optional<std::string> AskFile(HWND owner, const std::string& name, const std::string& folder,
                                   PictureFormat format) {
    const auto formats = FormatNames(format);
    std::string filter;
    for (const FormatName& one : formats) {
        filter += (filter.empty() ? "" : "|") + one.text + "|*." + one.ending;
    }
    const std::string& ending = formats.front().ending;
    return owl::CurrentModalGateway().AskFileToSave(owner, {.title = HostText("pictureTitle", "Save Picture"),
                                                            .filter = filter,
                                                            .extension = ending,
                                                            .folder = folder,
                                                            .name = name + '.' + ending});
}

Picture PictureOf(const ViewToShow& shown, const PictureSettings& settings) {
    const double fineness = settings.format == PictureFormat::Png
                                ? ScaleOf(settings)
                                : std::max(ScaleOf(settings), kVectorFineness);
    const owl::TSize size = LogicalSize(settings);
    return {.size = size,
            .scale = ScaleOf(settings),
            .title = shown.title,
            .draw =
                [view = QPointer(&shown.view), size, fineness](owl::TDC& dc) {
                    if (view) {
                        view->DrawPicture(dc, size, fineness);
                    }
                },
            .pixels = PixelSize(settings)};
}

void Write(const std::string& file, const ViewToShow& shown, PictureSettings settings) {
    const owl::WaitCursor wait;
    settings.format = FormatOf(file).value_or(settings.format);
    if (const std::string problem = ProblemOf(settings); !problem.empty()) {
        throw std::runtime_error(file + ": " + problem);
    }
    platform::WriteFileAtomically(file, Encode(PictureOf(shown, settings), settings.format));
}

} // namespace

std::optional<std::string> SavePicture(HWND owner, const ViewToShow& shown, GenericPlatform& platform) {
    PictureDialog dialog(owner, LoadPictureSettings(platform, {shown.view.width(), shown.view.height()}));
    if (dialog.ShowModal() != owl::kIdOk) {
        return std::nullopt;
    }
    const PictureSettings settings = dialog.Settings();
    StorePictureSettings(platform, settings);
    const QPointer<TheChild> alive(&shown.view);
    while (auto file = AskFile(owner, shown.name, ReadText(platform, kFolder), settings.format)) {
        if (!alive) {
            break; // closed while the chooser was open
        }
        try {
            Write(*file, shown, settings);
            WriteText(platform, kFolder, FilePath(*file).GetFolder());
            return file;
        } catch (const std::exception& error) {
            owl::CurrentModalGateway().ShowMessage(owner, error.what(), HostText("error", "Error"),
                                                   owl::kMbOk | owl::kMbIconStop);
        }
    }
    return std::nullopt;
}

owl::TSize CopyPicture(const ViewToShow& shown) {
    constexpr double kLeastScale = 2;
    constexpr int kDotsPerInch = 96;
    const owl::WaitCursor wait;
    PictureSettings settings;
    settings.width = shown.view.width();
    settings.height = shown.view.height();
    settings.resolution =
        static_cast<int>(kDotsPerInch * std::max(kLeastScale, shown.view.devicePixelRatioF()));
    const QImage image = PixelsOf(PictureOf(shown, settings));
    owl::CurrentServices().clipboard->SetImage(image);
    return {image.width(), image.height()};
}

} // namespace orvanta::review
