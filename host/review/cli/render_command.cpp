// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta render: pictures of a view for reports and papers.
#include "host/review/cli/commands.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/macro_keys.h"
#include "host/review/cli/review_library.h"
#include "host/review/cli/validators.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <map>
#include <memory>
#include <string_view>

namespace orvanta::cli {

namespace {

constexpr int kSmallestWidth = 150;
constexpr int kSmallestHeight = 100;
constexpr int kLargestSide = 16384;
constexpr double kMostPixels = 100e6;
constexpr int kMostLines = 256;

/// Rows or columns that are not given become as many as the channels need.
review::RenderRequest NewRequest() {
    review::RenderRequest request;
    request.page.rows = 0;
    request.page.columns = 0;
    return request;
}

/// \throws CLI::ValidationError
void ParseSize(const std::string& text, review::RenderRequest& request) {
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

void CheckPixels(const review::RenderRequest& request) {
    if (request.width * request.scale * request.height * request.scale > kMostPixels) {
        throw UsageError("--size and --scale: more than " +
                         std::to_string(static_cast<int>(kMostPixels / 1e6)) +
                         " million pixels (choose a smaller one, or .svg or .pdf with --scale 1)");
    }
}

template <typename Value>
void AddChoice(CLI::App& command, const char* name, const char* what,
               const std::map<std::string, Value>& values, Value& value) {
    command.add_option(name, value, what)
        ->transform(CLI::Validator(CLI::CheckedTransformer(values, CLI::ignore_case)).description(""))
        ->type_name("NAME");
}

/// \throws CLI::ValidationError
std::function<void(const std::string&)> KnownView() {
    return [](const std::string& name) {
        if (name != "spectrum") {
            throw CLI::ValidationError("--view", name + " not in {spectrum}");
        }
    };
}

void AddPage(CLI::App& command, review::RenderRequest& request) {
    review::SpectrumPage& page = request.page;
    command.add_option_function("--view", KnownView(), "spectrum, the default")->type_name("NAME");
    AddChoice(command, "--layout", "grid (default) of electrode pairs, or scalp",
              {{"grid", Layout::Mode::Grid}, {"scalp", Layout::Mode::Scalp}}, page.layout);
    AddChoice(command, "--mode", "mean (default), csa or timefreq",
              {{"mean", SPECT::Data::Mode::Mean},
               {"csa", SPECT::Data::Mode::CSA},
               {"timefreq", SPECT::Data::Mode::TimeFrequency}},
              page.mode);
    for (const auto& [name, lines] : {std::pair("--rows", &page.rows), std::pair("--cols", &page.columns)}) {
        command.add_option(name, *lines, "Of the grid (default: as many as the channels need)")
            ->check(CLI::Validator(CLI::Range(1, kMostLines)).description(""))
            ->type_name("N");
    }
    command.add_option("--bottom", page.range.bottom, "Lowest frequency shown (default 0)")
        ->check(CLI::Validator(CLI::NonNegativeNumber).description(""))
        ->type_name("HZ");
    command
        .add_option("--top", page.range.top, "Highest frequency shown (default 32, at most half the rate)")
        ->check(CLI::Validator(CLI::PositiveNumber).description(""))
        ->type_name("HZ");
    command.add_flag("--common-scale", page.commonScale, "One vertical scale for all plots");
    command.add_flag("--sd", page.sd, "Show the band of mean ± SD");
    for (const auto& [name, shown, what] :
         {std::tuple("--no-points", &page.points, "Hide the points"),
          std::tuple("--no-lines", &page.lines, "Hide the drop lines"),
          std::tuple("--no-labels", &page.labels, "Hide the names of the plots"),
          std::tuple("--no-axes", &page.axesText, "Hide the numbers at the axes"),
          std::tuple("--no-measures", &page.measuresBox,
                     "Hide the box of measures, shown over up to 4 plots"),
          std::tuple("--no-title", &page.title, "Hide the title, which names the patient")}) {
        command.add_flag_callback(
            name, [shown = shown] { *shown = false; }, what);
    }
}

void AddComparison(CLI::App& command, review::RenderRequest& request) {
    CLI::Option* secondary =
        command.add_option("--secondary", request.secondary, "Compare with the analysis of these settings")
            ->type_name("S.smx")
            ->check(IsNotEmpty());
    command.add_option("--p", request.pThreshold, "Mark bins with a p-value below it (default 0.05)")
        ->check(CLI::Validator(CLI::Range(0.0, 1.0)).description(""))
        ->type_name("P")
        ->needs(secondary);
    command
        .add_flag_callback(
            "--no-ttest", [&request] { request.tTest = false; }, "Mark no bins")
        ->needs(secondary);
    command.add_flag("--ratio", request.ratio, "Show main / secondary")->needs(secondary);
}

} // namespace

void AddRender(CLI::App& app, Command& run) {
    auto request = std::make_shared<review::RenderRequest>(NewRequest());
    CLI::App* command = app.add_subcommand("render", "Draw a view into a picture: PNG, SVG or PDF");
    command->option_defaults()->group("Analysis");
    request->analysis.AddTo(*command);
    command->add_option("--macro", request->macro, "Settings from a macro file")->type_name("M.smx");
    command->add_option("--set", request->assignments, "Change one setting, repeatable")
        ->type_name("KEY=VALUE")
        ->allow_extra_args(false);
    AddComparison(*command, *request);
    command->option_defaults()->group("View");
    AddPage(*command, *request);
    command->option_defaults()->group("Picture");
    command
        ->add_option_function<std::string>(
            "--size", [request](const std::string& text) { ParseSize(text, *request); },
            "Pixels before scaling, 96 to an inch (default 1600x1000)")
        ->type_name("WxH");
    command->add_option("--scale", request->scale, "Device pixels per pixel of a PNG (default 1)")
        ->check(CLI::Validator(CLI::Range(0.25, 8.0)).description(""))
        ->type_name("S");
    command->add_option("--out", request->out, "File to write; ends in .png, .svg or .pdf")
        ->type_name("FILE")
        ->required()
        ->check(IsNotEmpty());
    command->footer("Needs no display, and neither reads nor changes your settings of the view. Without "
                    "--montage the grid takes the first bipolar montage and the scalp the recording's own, "
                    "for coherence and phase the reference montage.");
    command->callback([&run, request] {
        run = [request] {
            CheckPixels(*request);
            return AskReview(*request);
        };
    });
}

} // namespace orvanta::cli
