// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/traces/trace_channel.h"

#include "host/signal_base/recording.h"
#include "host/signal_base/text.h"
#include "host/signal_base/units.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace orvanta::review {

namespace {

using Terms = std::vector<TraceTerm>;
using Averages = std::map<std::vector<const SensorType*>, std::shared_ptr<const Terms>>;

TraceTerm TermOf(const signal::Recording& recording, const SensorType& sensor, double weight) {
    const signal::SensorSamples samples = recording.Samples(sensor);
    return {samples.signal, weight, samples.gain, samples.offset};
}

std::shared_ptr<const Terms> MeanOf(const signal::Recording& recording,
                                    const std::vector<const SensorType*>& sensors, Averages& known) {
    if (sensors.empty()) {
        return nullptr;
    }
    std::shared_ptr<const Terms>& mean = known[sensors];
    if (!mean) {
        Terms terms;
        for (const SensorType* sensor : sensors) {
            terms.push_back(TermOf(recording, *sensor, 1 / static_cast<double>(sensors.size())));
        }
        mean = std::make_shared<const Terms>(std::move(terms));
    }
    return mean;
}

TraceChannel LineOf(const signal::Recording& recording, const ChnType& channel, Averages& averages) {
    TraceChannel line;
    line.name = channel.GetName();
    line.rate = recording.Rate();
    line.average = MeanOf(recording, channel.GetCommonAverage(), averages);
    for (const ChannelTerm& term : channel.GetTerms()) {
        const SensorType& sensor = *term.Sensor;
        if (line.terms.empty()) {
            line.type = sensor.GetType();
            line.unit = sensor.GetUnit();
        } else if (sensor.GetUnit() != line.unit) {
            line.unit = "raw"; // of a voltage and a stored number
        }
        line.terms.push_back(TermOf(recording, sensor, term.Weight));
        line.bad = line.bad || sensor.IsBad();
    }
    return line;
}

TraceChannel LineOf(const signal::Recording& recording, const SensorType& sensor) {
    const signal::SignalHeader& header = recording.Data().signals[sensor.GetSignalIndex()];
    const double scale =
        header.calibrated ? signal::MicrovoltsPer(signal::NormalUnit(header.unit)).value_or(1) : 1;
    TraceChannel line;
    line.name = sensor.GetName();
    line.unit = sensor.GetUnit();
    line.type = sensor.GetType();
    line.rate = sensor.GetRateHz();
    line.terms = {{sensor.GetSignalIndex(), 1, header.gain * scale, header.offset * scale}};
    line.bad = sensor.IsBad();
    return line;
}

void MakeNamesUnique(std::vector<TraceChannel>& lines) {
    std::set<std::string> taken;
    std::map<std::string, int> copies; // the last number given, so that many equal names cost no search
    for (TraceChannel& line : lines) {
        const std::string stem = line.name;
        int& copy = copies.emplace(signal::LowerCase(stem), 1).first->second;
        while (!taken.insert(signal::LowerCase(line.name)).second) {
            line.name = stem;
            line.name.append("-").append(std::to_string(++copy));
        }
    }
}

bool SameAverage(const TraceChannel& a, const TraceChannel& b) {
    return a.average == b.average || (a.average && b.average && *a.average == *b.average);
}

} // namespace

bool SameValues(const TraceChannel& a, const TraceChannel& b) {
    return a.rate == b.rate && a.unit == b.unit && a.terms == b.terms && SameAverage(a, b);
}

bool TraceChannel::operator==(const TraceChannel& other) const {
    return SameValues(*this, other) &&
           std::tie(name, type, bad) == std::tie(other.name, other.type, other.bad);
}

std::vector<TraceChannel> ChannelsOf(const EEGFileInfoType& recording) {
    const signal::Recording& opened = *recording.GetRecording();
    const MontageType& montage = recording.GetTraceInfo()->GetMtg();
    Averages averages;
    std::vector<TraceChannel> lines;
    for (auto channel = montage.BeginChn(); channel != montage.EndChn(); ++channel) {
        lines.push_back(LineOf(opened, **channel, averages));
    }
    for (const auto& sensor : opened.Sensors()) {
        if (sensor->IsSignal() && !sensor->IsEeg() && sensor->GetRateHz() > 0) {
            lines.push_back(LineOf(opened, *sensor));
        }
    }
    MakeNamesUnique(lines);
    return lines;
}

} // namespace orvanta::review
