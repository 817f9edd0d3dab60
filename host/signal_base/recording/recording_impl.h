// SPDX-License-Identifier: GPL-3.0-or-later
// The state of the open recording's objects.
#pragma once

#include "host/signal_base/recording.h"

#include <vector>

struct TraceInfoType::Impl {
    std::shared_ptr<const orvanta::signal::Recording> recording;
};

struct TraceCursorType::Impl {
    std::shared_ptr<const orvanta::signal::Recording> recording;
    EEGTraceInfoType* traceInfo = nullptr;
    std::int64_t position = 0;
    XTime start;
    ManagedFlag positionFlag;
};

struct EEGFileInfoType::Impl {
    std::shared_ptr<const orvanta::signal::Recording> recording;
    std::unique_ptr<EEGTraceInfoType> traceInfo;
    std::unique_ptr<EventsManager> events;
    std::unique_ptr<TraceCursorType> cursor;
    std::unique_ptr<MontageList> montages;
    SensorList average; ///< electrodes chosen for the average reference; empty for all
    std::string label;
    std::string fileName;
    ManagedFlag montageFlag;
};
