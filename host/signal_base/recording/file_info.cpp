// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/events/annotation_events.h"
#include "host/signal_base/montage/standard_montages.h"
#include "host/signal_base/recording/record_label.h"
#include "host/signal_base/recording/recording_impl.h"

#include <algorithm>
#include <cmath>

EEGFileInfoType::EEGFileInfoType(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) {}
EEGFileInfoType::~EEGFileInfoType() = default;

EEGTraceInfoType* EEGFileInfoType::GetTraceInfo() const {
    return impl_->traceInfo.get();
}

EventsManager* EEGFileInfoType::GetEventsManager() const {
    return impl_->events.get();
}

TraceCursorType* EEGFileInfoType::GetTraceCursor() const {
    return impl_->cursor.get();
}

MontageList* EEGFileInfoType::GetMontageList() const {
    return impl_->montages.get();
}

const std::string& EEGFileInfoType::GetLabel() const {
    return impl_->label;
}

const std::string& EEGFileInfoType::GetFileNameText() const {
    return impl_->fileName;
}

bool EEGFileInfoType::ChangeMntg(std::size_t index, bool notify, const MontageType* replacement) {
    MontageType* chosen = impl_->montages->Get(index);
    if (chosen == nullptr) {
        return false;
    }
    if (chosen->GetKind() == MontageType::Kind::AverageReference) {
        // Sensors may have been marked bad, or good again, since it was made.
        *chosen = orvanta::signal::AverageMontage(impl_->recording->Sensors(), impl_->average);
    }
    impl_->montages->SetCurrentIndex(index);
    impl_->traceInfo->SetMtg(replacement == nullptr ? *chosen : *replacement);
    if (notify) {
        impl_->montageFlag.Set();
    }
    return true;
}

void EEGFileInfoType::SetAverageElectrodes(const SensorList& electrodes) {
    constexpr auto kAverage = MontageType::Kind::AverageReference;
    impl_->average = electrodes;
    const auto listed = std::find_if(impl_->montages->begin(), impl_->montages->end(),
                                     [](const auto& montage) { return montage->GetKind() == kAverage; });
    if (listed == impl_->montages->end()) {
        return;
    }
    **listed = orvanta::signal::AverageMontage(impl_->recording->Sensors(), electrodes);
    if (impl_->traceInfo->GetMtg().GetKind() == kAverage) {
        impl_->traceInfo->SetMtg(**listed);
        impl_->montageFlag.Set();
    }
}

ManagedFlag& EEGFileInfoType::GetMontageFlag() const {
    return impl_->montageFlag;
}

std::shared_ptr<const void> EEGFileInfoType::KeepSamples() const {
    return impl_->recording->KeepSamples();
}

const std::shared_ptr<const orvanta::signal::Recording>& EEGFileInfoType::GetRecording() const {
    return impl_->recording;
}

namespace orvanta::signal {

std::unique_ptr<EEGFileInfoType> MakeRecording(RecordingData data) {
    const std::vector<EventRecord> events = EventsOf(data.annotations, data.repairs);
    const auto recording = std::make_shared<const Recording>(std::move(data));

    auto impl = std::make_unique<EEGFileInfoType::Impl>();
    impl->recording = recording;
    impl->label = RecordLabel(recording->Data());
    impl->fileName = FileNameText(recording->Data().path);
    const double rate = std::clamp(std::round(recording->Time().Rate()), 0.0, 4e9);
    impl->events = std::make_unique<EventsManager>(static_cast<std::uint32_t>(rate));
    for (const EventRecord& event : events) {
        impl->events->Add(event);
    }
    impl->montages = StandardMontages(recording->Sensors());
    auto traceImpl = std::make_unique<TraceInfoType::Impl>();
    traceImpl->recording = recording;
    impl->traceInfo = std::make_unique<EEGTraceInfoType>(std::move(traceImpl), *impl->montages->GetUniMtg());
    impl->cursor = std::make_unique<TraceCursorType>(recording, impl->traceInfo.get());
    return std::make_unique<EEGFileInfoType>(std::move(impl));
}

} // namespace orvanta::signal
