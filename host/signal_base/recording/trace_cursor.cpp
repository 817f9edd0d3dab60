// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording/recording_impl.h"
#include "host/signal_base/time/time_text.h"

#include <algorithm>
#include <cmath>

TraceCursorType::TraceCursorType(std::shared_ptr<const orvanta::signal::Recording> recording,
                                 EEGTraceInfoType* traceInfo)
    : impl_(std::make_unique<Impl>()) {
    impl_->recording = std::move(recording);
    impl_->traceInfo = traceInfo;
}

TraceCursorType::~TraceCursorType() = default;

unsigned TraceCursorType::GetMemDataSR() const {
    return static_cast<unsigned>(std::clamp(std::round(impl_->recording->Rate()), 0.0, 4e9));
}

const XTime* TraceCursorType::GetStartRecTime() const {
    return &impl_->start;
}

std::int64_t TraceCursorType::GetSample(const XTime* time, Sample::Mode mode, int /*reserved*/) const {
    if (time == nullptr) {
        return 0;
    }
    if (mode == Sample::Mode::Memory) {
        // Below 2^63: XTime reaches 9.2e9 s at most and rates are held far below 1e9 Hz by any file.
        return static_cast<std::int64_t>(
            std::clamp(std::round(time->Seconds() * GetMemDataSR()), -9.2e18, 9.2e18));
    }
    const orvanta::signal::Timeline& timeline = impl_->recording->Time();
    if (timeline.Segments().empty()) {
        return 0;
    }
    return timeline.SampleAt(time->Seconds() - 0.5 / timeline.Rate());
}

std::string TraceCursorType::GetTimeStrFromSmpl(Sample::Mode mode, unsigned rate, std::int64_t samples,
                                                XTime::DTMode dateTime, XTime::ARMode absolute) const {
    namespace signal = orvanta::signal;
    std::int64_t milliseconds = signal::MillisecondsOf(samples, rate);
    const signal::Timeline& timeline = impl_->recording->Time();
    if (mode == Sample::Mode::File && rate > 0 && !timeline.Segments().empty()) {
        const double stored = std::clamp(static_cast<double>(samples) / rate * timeline.Rate(), 0.0,
                                         static_cast<double>(timeline.SampleCount()));
        milliseconds = std::llround(timeline.TimeOf(std::llround(stored)) * 1000);
    }
    const std::optional<signal::StartTime>& start = impl_->recording->Data().start;
    std::string text;
    if (start && dateTime == XTime::DTMode::DateTime) {
        text = signal::DateText(*start, milliseconds) + " ";
    }
    const bool clock = start && absolute == XTime::ARMode::Clock;
    return text + (clock ? signal::ClockText(*start, milliseconds) : signal::TimeText(milliseconds));
}

void TraceCursorType::SetPosition(std::int64_t sample) {
    const unsigned rate = GetMemDataSR();
    const auto count = static_cast<std::int64_t>(std::ceil(impl_->recording->Time().Duration() * rate));
    const auto position = std::clamp<std::int64_t>(sample, 0, std::max<std::int64_t>(0, count - 1));
    if (position == impl_->position) {
        return;
    }
    impl_->position = position;
    impl_->start = rate == 0 ? XTime() : XTime::FromSeconds(static_cast<double>(position) / rate);
    impl_->positionFlag.Set();
}

ManagedFlag& TraceCursorType::GetPositionFlag() const {
    return impl_->positionFlag;
}

const MontageType& TraceCursorType::GetMtg() const {
    return impl_->traceInfo->GetMtg();
}
