// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/page.h"

#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "spectrum_view/painting/band_colors.h"
#include "spectrum_view/painting/page_parts.h"
#include "spectrum_view/state/status_texts.h"
#include "spectrum_view/traces/page_notice.h"

namespace orvanta::spectrum_view {

namespace {

void PaintFrame(owl::TDC& dc, const SlotFrame& frame) {
    dc.FillRect(frame.slot, kWhite);
    dc.SetClip(frame.slot);
    dc.FrameRect(frame.slot, kBlack);
    dc.ClearClip();
}

void PaintSlots(owl::TDC& dc, const Page& page, std::span<const TraceEntry> traces, OverTimePlots& overTime,
                const owl::TRect& damaged) {
    const PlotSources sources{page.manager, page.view, page.display, page.font};
    const auto paint = [&](const auto& plots) {
        for (const auto& plot : plots) {
            if (plot.frame.slot.Touches(damaged)) {
                PaintFrame(dc, plot.frame);
            }
        }
    };
    if (page.display.mode == SPECT::Data::Mode::Mean) {
        paint(MeanPlotsOf(sources, traces));
    } else {
        paint(overTime.Of(sources, page.recording, traces));
    }
}

void PaintHeadBehind(owl::TDC& dc, const Page& page) {
    SensorList sensors;
    page.recording.GetTraceInfo()->GetSensorsListOfType(sensors, Sensor::EegFamily, Sensor::Class::Eeg);
    const MyRect region{(page.area.left + page.area.right) / 2, (page.area.top + page.area.bottom) / 2,
                        page.area.Width(), page.area.Height()};
    PaintHead(dc, Get2DHeadOutline(sensors, region), page.lineColor);
}

} // namespace

void PaintPage(owl::TDC& dc, const Page& page, std::span<const TraceEntry> traces, OverTimePlots& overTime,
               const owl::TRect& damaged) {
    if (page.manager.GetMain() != nullptr) {
        if (page.view.layout == Layout::Mode::Scalp) {
            PaintHeadBehind(dc, page);
        }
        PaintSlots(dc, page, traces, overTime, damaged);
        std::vector<owl::TRect> slots;
        slots.reserve(traces.size());
        for (const TraceEntry& trace : traces) {
            slots.push_back(trace.rectangle);
        }
        PaintTitle(dc, page.area, slots, TitleOf(page.manager, page.recording, page.messages), page.font,
                   page.textColor);
    }
    PaintNotice(dc, page.area, PageNotice(page.manager, page.view, page.display.range, traces, page.messages),
                page.font);
}

} // namespace orvanta::spectrum_view
