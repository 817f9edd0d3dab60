// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording.h"

#include "host/signal_base/limited_list.h"
#include "host/signal_base/number_words.h"
#include "host/signal_base/recording/kept_source.h"
#include "host/signal_base/recording/resampled_source.h"
#include "host/signal_base/recording_error.h"
#include "host/signal_base/sensors/classify.h"

#include <algorithm>
#include <map>
#include <stdexcept>

namespace orvanta::signal {

namespace {

using SensorVector = std::vector<std::shared_ptr<SensorType>>;

/// The sensor of the highest rate among those that `belongs` accepts; null when there is none.
template <typename Predicate>
const SensorType* Fastest(const SensorVector& sensors, Predicate belongs) {
    const SensorType* fastest = nullptr;
    for (const auto& sensor : sensors) {
        if (belongs(*sensor) && (fastest == nullptr || sensor->GetRateHz() > fastest->GetRateHz())) {
            fastest = sensor.get();
        }
    }
    return fastest;
}

std::shared_ptr<const BlockSource> AtOneRate(const RecordingData& data, const SensorVector& sensors,
                                             const SensorType* fastest) {
    std::vector<std::size_t> slower;
    if (fastest != nullptr) {
        const std::uint32_t samples = data.source->Layout(fastest->GetSignalIndex()).samples;
        for (const auto& sensor : sensors) {
            if (sensor->IsEeg() && data.source->Layout(sensor->GetSignalIndex()).samples != samples) {
                slower.push_back(sensor->GetSignalIndex());
            }
        }
        if (!slower.empty()) {
            try {
                return std::make_shared<ResampledSource>(data.source, data.segments, std::move(slower),
                                                         samples);
            } catch (const std::length_error&) {
                throw RecordingError(data.path, "the rates of its EEG channels lie too far apart",
                                     "export the channels of one rate to a file of their own");
            }
        }
    }
    return data.source;
}

/// A line for each rate that is brought to a higher one.
void ReportResampling(const SensorVector& sensors, double rate_hz, std::vector<std::string>& remarks) {
    std::map<double, std::vector<std::string>> slower;
    for (const auto& sensor : sensors) {
        if (sensor->IsEeg() && sensor->GetRateHz() < rate_hz) {
            slower[sensor->GetRateHz()].push_back(sensor->GetName());
        }
    }
    LimitedList list(remarks, "");
    for (const auto& [rate, names] : slower) {
        list.Add(NameList(names) + ": " + HertzText(rate) + " resampled to " + HertzText(rate_hz) +
                 "; bins above " + HertzText(rate / 2) + " are empty");
    }
}

Timeline LayOutTime(const RecordingData& data, const BlockSource& source, std::size_t signal,
                    double rate_hz) {
    if (!(rate_hz > 0)) {
        return {};
    }
    const std::uint64_t perBlock = source.Layout(signal).samples;
    const std::uint64_t stored = source.SampleCount(signal);
    std::vector<Segment> segments;
    for (const BlockSegment& blocks : data.segments) {
        const std::uint64_t first = std::min(blocks.first_block * perBlock, stored);
        const std::uint64_t count = std::min(blocks.count * perBlock, stored - first);
        if (count > 0) {
            segments.push_back(
                {static_cast<std::int64_t>(first), static_cast<std::int64_t>(count), blocks.start_s});
        }
    }
    return Timeline(rate_hz, std::move(segments));
}

} // namespace

struct Recording::Impl {
    RecordingData data;
    SensorVector sensors;
    std::unique_ptr<const KeptSource> source;
    double rate = 0;
    Timeline time;
};

Recording::Recording(RecordingData data) : impl_(std::make_unique<Impl>()) {
    impl_->data = std::move(data);
    RecordingData& found = impl_->data;
    if (found.source == nullptr || found.source->SignalCount() != found.signals.size()) {
        throw RecordingError(found.path, "its channels and samples do not belong together",
                             "this is a fault of the reader: report it with the file");
    }
    impl_->sensors = MakeSensors(found, found.repairs);
    const SensorType* fastest =
        Fastest(impl_->sensors, [](const SensorType& sensor) { return sensor.IsEeg(); });
    impl_->source = std::make_unique<KeptSource>(AtOneRate(found, impl_->sensors, fastest));
    impl_->rate = fastest == nullptr ? 0 : fastest->GetRateHz();
    ReportResampling(impl_->sensors, impl_->rate, found.repairs);
    if (fastest == nullptr) {
        fastest = Fastest(impl_->sensors, [](const SensorType& sensor) {
            return sensor.IsSignal() && sensor.GetRateHz() > 0;
        });
    }
    if (fastest != nullptr) {
        impl_->time = TimeOf(fastest->GetSignalIndex());
    }
}

Recording::~Recording() = default;

const RecordingData& Recording::Data() const {
    return impl_->data;
}

const BlockSource& Recording::Source() const {
    return *impl_->source;
}

std::shared_ptr<const void> Recording::KeepSamples(std::uint64_t limit) const {
    return impl_->source->Keep(limit);
}

double Recording::Rate() const {
    return impl_->rate;
}

const Timeline& Recording::Time() const {
    return impl_->time;
}

Timeline Recording::TimeOf(std::size_t signal) const {
    const SensorType& sensor = *impl_->sensors.at(signal);
    return LayOutTime(impl_->data, *impl_->source, signal, sensor.IsEeg() ? impl_->rate : sensor.GetRateHz());
}

SensorSamples Recording::Samples(const SensorType& sensor) const {
    const std::size_t signal = sensor.GetSignalIndex();
    if (signal >= impl_->sensors.size() || impl_->sensors[signal].get() != &sensor || !sensor.IsEeg()) {
        throw std::invalid_argument("no EEG sensor of this recording: " + sensor.GetName());
    }
    const SignalHeader& header = impl_->data.signals[signal];
    const double microvolts = EegMicrovolts(header);
    return {signal, header.gain * microvolts, header.offset * microvolts};
}

const std::vector<std::string>& Recording::Repairs() const {
    return impl_->data.repairs;
}

const std::vector<std::shared_ptr<SensorType>>& Recording::Sensors() const {
    return impl_->sensors;
}

} // namespace orvanta::signal
