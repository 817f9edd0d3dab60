// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/render/map_rendering.h"

#include "host/chart_view/topography/palettes.h"
#include "host/review/app/module_library.h"
#include "host/review/app/render/hidden_window.h"
#include "host/review/app/render/page_grid.h"
#include "host/review/app/render/picture_file.h"
#include "host/review/app/render/render_application.h"
#include "host/review/cli/exit_status.h"
#include "host/review/cli/output.h"
#include "host/spectral_data/results/errors.h"
#include "host/spectral_data/results/names.h"

#include <algorithm>
#include <filesystem>

namespace orvanta::review {

namespace {

constexpr int kMostAside = 8;         ///< rows, and columns, of the view
constexpr double kVectorFineness = 3; ///< of the pictures in an SVG or PDF

void CheckPalette(const std::string& name) {
    if (chart::FindPalette(name) != nullptr) {
        return;
    }
    std::string names;
    for (const chart::Palette& palette : chart::Palettes()) {
        names += (names.empty() ? "" : ", ") + std::string(palette.name);
    }
    throw cli::UsageError("--palette " + name + ": no such palette (there are " + names + ")");
}

std::string UnitOf(const SPECT::PlotSet& map, SPECT::Entity::Type entity) {
    return spectral::MeasureUnit(static_cast<SPECT::Meas::Type>(map.SpectralMeas), entity);
}

void CheckCommonScale(const std::vector<SPECT::PlotSet>& maps, SPECT::Entity::Type entity) {
    for (const SPECT::PlotSet& map : maps) {
        if (UnitOf(map, entity) != UnitOf(maps.front(), entity)) {
            throw cli::UsageError("--common-scale: the maps are in " + UnitOf(maps.front(), entity) +
                                  " and in " + UnitOf(map, entity) +
                                  " (choose measures of one unit, or leave it out)");
        }
    }
}

void CheckGrid(const MapsPage& page, int maps) {
    if (page.rows > kMostAside || page.columns > kMostAside || page.rows * page.columns < maps) {
        throw cli::UsageError("--rows " + std::to_string(page.rows) + " and --cols " +
                              std::to_string(page.columns) + ": no room for " + std::to_string(maps) +
                              " maps (there are at most " + std::to_string(kMostAside) + " of each)");
    }
}

/// Coherence and phase belong to pairs, and a montage makes channels: a map shows what each electrode has.
void CheckAnalysis(const cli::AnalysisArguments& analysis) {
    if (analysis.entity == "coherence" || analysis.entity == "phase") {
        throw cli::UsageError("--entity " + analysis.entity +
                              ": belongs to pairs of electrodes, and a map shows what each one has (choose "
                              "power or amplitude)");
    }
    if (!analysis.montage.empty()) {
        throw cli::UsageError("--montage: maps show the electrodes as recorded (leave it out)");
    }
}

void RequirePlaces(const std::string& file, const EEGFileInfoType& recording) {
    SensorList sensors;
    recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    if (std::ranges::none_of(sensors,
                             [](const SensorType* sensor) { return sensor->GetElectInfo().Known; })) {
        throw spectral::NothingComputable(file + ": no electrode has a name with a known place on the head",
                                          "name the channels as in the 10-05 system, such as Fp1 or POz");
    }
}

const cli::AnalysisArguments& Checked(const cli::AnalysisArguments& analysis) {
    CheckAnalysis(analysis);
    return analysis;
}

} // namespace

MapsPage MapsPageFor(const MapsPage& page, SPECT::Entity::Type entity, bool cartoon) {
    CheckPalette(page.palette);
    if (page.commonScale) {
        CheckCommonScale(page.maps, entity);
    }
    MapsPage filled = page;
    const int maps = cartoon ? 1 : static_cast<int>(page.maps.size());
    FillGrid(maps, filled.rows, filled.columns);
    CheckGrid(filled, maps);
    return filled;
}

MapRendering::MapRendering(const PictureRequest& request, const MapsPage& page, bool cartoon)
    : request_(request), run_(Checked(request.analysis)),
      page_(MapsPageFor(page, run_.Manager().GetMeasEntity(), cartoon)) {
    // A cartoon may be a folder of frames.
    (cartoon ? cli::CheckConflicts : cli::CheckOutputs)({{"--out", request.out}},
                                                        run_.Inputs({request.macro}));
    RequirePlaces(request.analysis.file, run_.Recording());
    spectral::ComputeOptions options = request.analysis.Options();
    options.store_epochs = cartoon;
    run_.Compute(cli::MakeMacro(request.macro, request.assignments), request.macro, options,
                 "Computing the analysis");
}

std::vector<DrawnMap> MapRendering::Draw(ModuleBridge& bridge, owl::TDC& dc) {
    HiddenWindow window;
    return bridge.DrawMaps(window, run_.Recording(), run_.Manager(), page_, {request_.width, request_.height},
                           dc);
}

void MapRendering::DrawCartoon(ModuleBridge& bridge, const TakeFrame& take) {
    HiddenWindow window;
    bridge.DrawCartoon(window, run_.Recording(), run_.Manager(), page_, {request_.width, request_.height},
                       take);
}

int RunRenderMaps(const RenderMapsRequest& request) {
    const PictureFormat format = RequiredFormat(request.out);
    const ModuleLibrary module(LibraryFolder());
    MapRendering rendering(request, request.page, false);
    StopWhenInterrupted();
    // Maps are made of pixels, which vectors shall not be too coarse for.
    const RenderApplication application(format == PictureFormat::Png ? request.scale : kVectorFineness);
    std::vector<DrawnMap> maps;
    const std::string contents = Encode({{request.width, request.height},
                                         request.scale,
                                         std::filesystem::path(request.analysis.file).filename(),
                                         [&](owl::TDC& dc) { maps = rendering.Draw(module.Bridge(), dc); }},
                                        format);
    const auto shown = std::ranges::count_if(maps, [](const DrawnMap& map) { return !map.area.IsEmpty(); });
    if (shown == 0) {
        throw spectral::NothingComputable(request.analysis.file + ": no map has a place on the page",
                                          "choose a larger --size, or fewer --rows and --cols");
    }
    StopWhenInterrupted();
    cli::WriteOutput(request.out, contents);
    if (!request.analysis.quiet) {
        cli::WriteOutput("-", "written " + request.out + ": " +
                                  cli::Counted(static_cast<std::size_t>(shown), "map") + "\n");
    }
    return cli::kDone;
}

} // namespace orvanta::review
