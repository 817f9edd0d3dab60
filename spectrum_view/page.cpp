// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/page.h"

#include "host/toolkit/form_texts.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/measures/measures_boxes.h"
#include "spectrum_view/painting/csa_plot.h"
#include "spectrum_view/painting/mean_plot.h"
#include "spectrum_view/painting/measures_box.h"
#include "spectrum_view/painting/page_parts.h"
#include "spectrum_view/painting/slot_frame.h"
#include "spectrum_view/painting/time_frequency_plot.h"
#include "spectrum_view/state/status_texts.h"
#include "spectrum_view/traces/page_notice.h"

#include <array>

namespace orvanta::spectrum_view {

namespace {

FormatNumber MeasureFormat(const GenericPlatform& platform) {
    return [&platform](double value) {
        constexpr int kDecimals = 2;
        std::array<char, 128> text{};
        platform.FloatToStrLoc(text.data(), static_cast<int>(text.size()), value, kDecimals);
        return std::string(text.data());
    };
}

/// Paints the plots that meet \p damaged, each with its table of measures.
template <typename Plot, typename Paint>
void PaintSlots(owl::TDC& dc, const PlotSources& sources, std::span<const TraceEntry> traces,
                std::vector<Plot> plots, const owl::TRect& damaged, const FormatNumber& format,
                const Paint& paint) {
    for (std::size_t i = 0; i < plots.size(); ++i) {
        SlotFrame& frame = plots[i].frame;
        if (!frame.slot.Touches(damaged)) {
            continue;
        }
        const std::optional<MeasuresBoxInput> box = MeasuresBoxOf(sources, traces, i, format);
        if (box) {
            frame.box = MeasuresBoxRect(dc, *box);
        }
        paint(dc, plots[i]);
        if (box) {
            PaintMeasuresBox(dc, *box);
        }
    }
}

void PaintPlots(owl::TDC& dc, const Page& page, std::span<const TraceEntry> traces, OverTimePlots& overTime,
                const owl::TRect& damaged) {
    const PlotSources sources{page.manager, page.view, page.display, page.font,
                              owl::TextOr(page.messages, "Spectrum", "Ratio", "Ratio")};
    const FormatNumber format = MeasureFormat(page.platform);
    switch (page.display.mode) {
    case SPECT::Data::Mode::Mean:
        PaintSlots(dc, sources, traces, MeanPlotsOf(sources, traces), damaged, format, PaintMeanPlot);
        break;
    case SPECT::Data::Mode::TimeFrequency:
        PaintSlots(dc, sources, traces, overTime.Of(sources, page.recording, traces), damaged, format,
                   PaintTimeFrequency);
        break;
    case SPECT::Data::Mode::CSA:
        PaintSlots(dc, sources, traces, overTime.Of(sources, page.recording, traces), damaged, format,
                   PaintCompressedArray);
        break;
    }
}

void PaintHeadBehind(owl::TDC& dc, const Page& page) {
    SensorList sensors;
    page.recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    const MyRect region{(page.area.left + page.area.right) / 2, (page.area.top + page.area.bottom) / 2,
                        page.area.Width(), page.area.Height()};
    PaintHead(dc, Get2DHeadOutline(sensors, region), page.lineColor);
}

void PaintTitleBeside(owl::TDC& dc, const Page& page, std::span<const TraceEntry> traces) {
    std::vector<owl::TRect> slots;
    slots.reserve(traces.size());
    for (const TraceEntry& trace : traces) {
        slots.push_back(trace.rectangle);
    }
    PaintTitle(dc, page.area, slots, TitleOf(page.manager, page.recording, page.messages), page.font,
               page.textColor);
}

} // namespace

void PaintPage(owl::TDC& dc, const Page& page, std::span<const TraceEntry> traces, OverTimePlots& overTime,
               const owl::TRect& damaged) {
    if (page.manager.GetMain() != nullptr) {
        if (page.view.layout == Layout::Mode::Scalp) {
            PaintHeadBehind(dc, page);
        }
        PaintPlots(dc, page, traces, overTime, damaged);
        if (page.view.showTitle) {
            PaintTitleBeside(dc, page, traces);
        }
    }
    PaintNotice(dc, page.area, PageNotice(page.manager, page.view, page.display, traces, page.messages),
                page.font);
}

} // namespace orvanta::spectrum_view
