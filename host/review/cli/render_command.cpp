// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta render: pictures of a view for reports and papers.
#include "host/review/cli/commands.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/render_views.h"
#include "host/review/cli/review_library.h"
#include "host/review/cli/validators.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <memory>
#include <utility>
#include <vector>

namespace orvanta::cli {

namespace {

constexpr int kSmallestWidth = 150;
constexpr int kSmallestHeight = 100;
constexpr int kLargestSide = 16384;
constexpr double kMostPixels = 100e6;
constexpr int kMostLines = 256;

/// What was asked for, whatever the view.
struct Choice {
    std::string view;
    review::PictureRequest picture;
    // Of both views.
    int rows = 0;
    int columns = 0;
    bool commonScale = false;
    review::RenderRequest spectrum;
    MapsChoice maps;
    // The options of one view, which the other refuses.
    std::vector<const CLI::Option*> spectrumOptions, mapsOptions;
};

/// \throws CLI::ValidationError
void ParseSize(const std::string& text, review::PictureRequest& request) {
    const char* end = text.data() + text.size();
    const auto width = std::from_chars(text.data(), end, request.width);
    const bool cross =
        width.ec == std::errc() && width.ptr != end && (*width.ptr == 'x' || *width.ptr == 'X');
    const auto height = cross ? std::from_chars(width.ptr + 1, end, request.height)
                              : std::from_chars_result{end, std::errc::invalid_argument};
    if (height.ec != std::errc() || height.ptr != end) {
        throw CLI::ValidationError("--size", text + " is no size such as 1600x1000");
    }
    if (request.width < kSmallestWidth || request.height < kSmallestHeight || request.width > kLargestSide ||
        request.height > kLargestSide) {
        throw CLI::ValidationError("--size", text + " is not within " + std::to_string(kSmallestWidth) + "x" +
                                                 std::to_string(kSmallestHeight) + " and " +
                                                 std::to_string(kLargestSide) + "x" +
                                                 std::to_string(kLargestSide));
    }
}

void CheckPixels(const review::PictureRequest& request) {
    const double pixels = request.width * request.scale * request.height * request.scale;
    if (!(pixels <= kMostPixels)) { // a scale may be no number
        throw UsageError("--size and --scale: more than " +
                         std::to_string(static_cast<int>(kMostPixels / 1e6)) +
                         " million pixels (choose a smaller one, or .svg or .pdf with --scale 1)");
    }
}

/// \return the options that \p add adds
template <typename Add>
std::vector<const CLI::Option*> OptionsOf(const CLI::App& command, const Add& add) {
    const auto before = command.get_options().size();
    add();
    const auto all = command.get_options();
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
}

void Refuse(const std::vector<const CLI::Option*>& options, const std::string& view,
            const std::string& other) {
    for (const CLI::Option* option : options) {
        if (option->count() > 0) {
            std::string refusal = option->get_name();
            refusal += ": belongs to --view ";
            refusal += other;
            refusal += ", not to --view ";
            refusal += view;
            refusal += " (leave it out, or choose the other view)";
            throw UsageError(refusal);
        }
    }
}

void AddShared(CLI::App& command, Choice& choice) {
    command.add_option("--view", choice.view, "spectrum (default) or maps")
        ->transform(CLI::Validator(CLI::IsMember({"spectrum", "maps"}, CLI::ignore_case)).description(""))
        ->type_name("NAME");
    for (const auto& [name, lines] :
         {std::pair("--rows", &choice.rows), std::pair("--cols", &choice.columns)}) {
        command.add_option(name, *lines, "Of plots or maps (default: as many as are needed)")
            ->check(CLI::Validator(CLI::Range(1, kMostLines)).description(""))
            ->type_name("N");
    }
    command.add_flag("--common-scale", choice.commonScale, "One scale for all plots or maps");
}

review::RenderRequest SpectrumRequest(const Choice& choice) {
    review::RenderRequest request = choice.spectrum;
    static_cast<review::PictureRequest&>(request) = choice.picture;
    request.page.rows = choice.rows;
    request.page.columns = choice.columns;
    request.page.commonScale = choice.commonScale;
    return request;
}

review::MapsPage MapsPageOf(const Choice& choice) {
    review::MapsPage page = choice.maps.Page();
    page.rows = choice.rows;
    page.columns = choice.columns;
    page.commonScale = choice.commonScale;
    return page;
}

int Render(const Choice& choice) {
    CheckPixels(choice.picture);
    if (choice.view != "maps" && !(choice.view.empty() && choice.maps.cartoon)) {
        Refuse(choice.mapsOptions, "spectrum", "maps");
        return AskReview(SpectrumRequest(choice));
    }
    Refuse(choice.spectrumOptions, "maps", "spectrum");
    if (choice.maps.cartoon) {
        return AskReview(
            review::RenderCartoonRequest{choice.picture, MapsPageOf(choice), choice.maps.framesPerSecond});
    }
    return AskReview(review::RenderMapsRequest{choice.picture, MapsPageOf(choice)});
}

} // namespace

void AddRender(CLI::App& app, Command& run) {
    auto choice = std::make_shared<Choice>();
    review::PictureRequest& picture = choice->picture;
    CLI::App* command = app.add_subcommand("render", "Draw a view into a picture: PNG, SVG or PDF");
    command->option_defaults()->group("Analysis");
    picture.analysis.AddTo(*command);
    command->add_option("--macro", picture.macro, "Settings from a macro file")->type_name("M.smx");
    command->add_option("--set", picture.assignments, "Change one setting, repeatable")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    command->option_defaults()->group("View");
    AddShared(*command, *choice);
    command->option_defaults()->group("Spectrum view");
    choice->spectrumOptions = OptionsOf(*command, [&] { AddSpectrumView(*command, choice->spectrum); });
    command->option_defaults()->group("Maps view");
    choice->mapsOptions = OptionsOf(*command, [&] { AddMapsView(*command, choice->maps); });
    command->option_defaults()->group("Picture");
    command
        ->add_option_function<std::string>(
            "--size", [choice](const std::string& text) { ParseSize(text, choice->picture); },
            "Pixels before scaling, 96 to an inch (default 1600x1000)")
        ->type_name("WxH");
    command->add_option("--scale", picture.scale, "Device pixels per pixel of a PNG (default 1)")
        ->check(CLI::Validator(CLI::Range(0.25, 8.0)).description(""))
        ->type_name("S");
    command->add_option("--out", picture.out, "File to write; ends in .png, .svg or .pdf")
        ->type_name("FILE")
        ->required()
        ->check(IsNotEmpty());
    command->footer("Needs no display, and neither reads nor changes your settings of the view. Without "
                    "--montage the grid takes the first bipolar montage and the scalp the recording's own, "
                    "for coherence and phase the reference montage; maps show the electrodes as recorded.");
    command->callback([&run, choice] { run = [choice] { return Render(*choice); }; });
}

} // namespace orvanta::cli
