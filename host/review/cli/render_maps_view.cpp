// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/cli/exit_status.h"
#include "host/review/cli/map_choice.h"
#include "host/review/cli/render_views.h"
#include "host/review/cli/validators.h"

#include <tuple>

namespace orvanta::cli {

namespace {

constexpr int kMostContours = 20;
constexpr double kMostFrames = 240;

} // namespace

void AddMapsView(CLI::App& command, MapsChoice& choice) {
    review::MapsPage& page = choice.page;
    command
        .add_option("--map", choice.maps,
                    "What a map shows, each by name or number, repeatable (default: Abs of every band)")
        ->type_name("BAND:MEASURE ...");
    command.add_flag("--3d", page.threeD, "On heads instead of flat");
    AddChoice(command, "--view-from", "Heads from top (default), front, left, right or back",
              {{"top", review::HeadSide::Top},
               {"front", review::HeadSide::Front},
               {"left", review::HeadSide::Left},
               {"right", review::HeadSide::Right},
               {"back", review::HeadSide::Back}},
              page.from);
    command
        .add_option("--palette", page.palette, "viridis (default), cividis, inferno, difference, turbo, grey")
        ->type_name("NAME");
    command.add_option("--contours", page.contours, "Lines between the ends of the scale (default 6)")
        ->check(IsWholeIn(0, kMostContours))
        ->type_name("N");
    command.add_option("--scale-range", choice.scaleRange, "Ends of the scale (default: those of each map)")
        ->type_name("LO:HI");
    command.add_flag("--names", page.names, "Show the electrodes' names");
    command.add_flag("--values", page.values, "Show the electrodes' values");
    command.add_flag_callback(
        "--no-electrodes", [&page] { page.electrodes = false; }, "Hide the electrodes");
    command.add_flag(
        "--cartoon", choice.cartoon,
        "One frame for each epoch: a video (--out X.mp4 or .webm, by ffmpeg) or PNGs (--out DIR)");
    command.add_option("--fps", choice.framesPerSecond, "Frames per second of a video (default 25)")
        ->check(IsNumberIn(1, kMostFrames))
        ->type_name("N");
}

review::MapsPage MapsChoice::Page() const {
    review::MapsPage result = page;
    for (const std::string& map : maps) {
        result.maps.push_back(ParseMap(map));
    }
    if (maps.empty()) {
        result.maps = MapsOfAllBands();
    }
    if (cartoon && maps.size() != 1) {
        throw UsageError("--cartoon: shows one band and measure over time (give one --map, such as "
                         "Alpha:Abs)");
    }
    if (page.from != review::HeadSide::Top && !page.threeD) {
        throw UsageError("--view-from: turns heads (give --3d, too)");
    }
    if (!scaleRange.empty()) {
        ParseScaleRange(scaleRange, result.maps);
    }
    return result;
}

} // namespace orvanta::cli
