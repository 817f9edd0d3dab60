// SPDX-License-Identifier: GPL-3.0-or-later
// Gains, filters and the lines that are shown.
#include "host/review/app/traces/channels_dialog.h"
#include "host/review/app/traces/trace_scales.h"
#include "host/review/app/traces/trace_texts.h"
#include "host/review/app/traces/trace_view_impl.h"
#include "host/toolkit/modal_gateway.h"

#include <algorithm>

namespace orvanta::review {

std::vector<TraceGroup> TraceView::Impl::GroupsToScale() const {
    if (const TraceChannel* selected = model.SelectedChannel()) {
        return {GroupOf(selected->type)};
    }
    return {kAllGroups.begin(), kAllGroups.end()};
}

void TraceView::Impl::StepGain(bool larger) {
    for (const TraceGroup group : GroupsToScale()) {
        double& gain = model.State().window.gains[group];
        gain = NextStep(kSensitivities, gain, !larger); // fewer microvolts to a millimetre draw larger
    }
    Refresh();
}

void TraceView::Impl::SetGain(double unitsPerMillimetre) {
    if (!(unitsPerMillimetre > 0)) {
        return;
    }
    TraceGains& gains = model.State().window.gains;
    // All types keep their relation to the one that is shown.
    const TraceChannel* selected = model.SelectedChannel();
    const double factor =
        unitsPerMillimetre / gains[selected != nullptr ? GroupOf(selected->type) : TraceGroup::Eeg];
    for (const TraceGroup group : GroupsToScale()) {
        gains[group] = std::clamp(gains[group] * factor, kSensitivities.front(), kSensitivities.back());
    }
    Refresh();
}

void TraceView::Impl::SetFilter(const TraceFilter& filter) {
    if (filter == model.State().filter) {
        return;
    }
    model.State().filter = filter;
    model.Reload();
    Refresh();
}

void TraceView::Impl::Select(const std::string& line) {
    model.Select(line);
    Refresh();
}

void TraceView::Impl::SelectNeighbour(int step) {
    const int count = static_cast<int>(model.Shown().size());
    if (count == 0) {
        return;
    }
    const std::optional<std::size_t> now = model.FindShown(model.Selected());
    const int next = now ? std::clamp(static_cast<int>(*now) + step, 0, count - 1)
                         : Layout().firstLine + (step > 0 ? 0 : Layout().lineCount - 1);
    const auto line = static_cast<std::size_t>(std::clamp(next, 0, count - 1));
    Select(model.Channels()[model.Shown()[line]].name);
    BringIntoView(line);
}

void TraceView::Impl::ToggleBad() {
    const TraceChannel* selected = model.SelectedChannel();
    if (selected == nullptr) {
        Say(TraceText("noChannel", "Select a channel first: click its name, or press Shift+Down."));
        return;
    }
    const bool bad = !selected->bad;
    const std::string name = SetBad(*selected, bad);
    TellBad();
    Say(bad ? TraceText("isBad", "%1 is bad now: analyses, maps and average references leave it out.", name)
            : TraceText("isGood", "%1 is good again.", name));
}

std::string TraceView::Impl::SetBad(const TraceChannel& line, bool bad) {
    EEGTraceInfoType& sensors = *recording.GetTraceInfo();
    SensorList list;
    sensors.GetSensorsList(list, Sensor::Class::Acquired);
    // A channel is named after its first electrode; only that one is marked.
    for (const SensorType* sensor : list) {
        if (!line.terms.empty() && sensor->GetSignalIndex() == line.terms.front().signal) {
            sensors.FindSensor(sensor->GetName())->SetBad(bad);
            return sensor->GetName();
        }
    }
    return line.name;
}

void TraceView::Impl::TellBad() {
    const MontageList& montages = *recording.GetMontageList();
    const MontageType& used = recording.GetTraceInfo()->GetMtg();
    const MontageType* listed = montages.Get(montages.GetCurrentIndex());
    // The average is made anew; one whose electrodes the user chose stays.
    if (used.GetKind() == MontageType::Kind::AverageReference && listed != nullptr && *listed == used) {
        recording.ChangeMntg(montages.GetCurrentIndex(), true);
    } else {
        recording.GetMontageFlag().Set();
    }
}

void TraceView::Impl::ChooseChannels() {
    ChannelsDialog dialog(view.GetHandle(), model.Channels(), model.Hidden());
    const QPointer<TraceView> alive(&view);
    if (dialog.ShowModal() != owl::kIdOk || !alive) {
        return;
    }
    const std::set<std::string> bad = dialog.Bad();
    bool changed = false;
    for (const TraceChannel& channel : model.Channels()) {
        if (bad.contains(channel.name) != channel.bad) {
            SetBad(channel, !channel.bad);
            changed = true;
        }
    }
    SetHidden(dialog.Hidden());
    if (changed) {
        TellBad();
    }
}

void TraceView::Impl::HideSelected() {
    const TraceChannel* selected = model.SelectedChannel();
    if (selected == nullptr) {
        Say(TraceText("noChannel", "Select a channel first: click its name, or press Shift+Down."));
        return;
    }
    const std::string name = selected->name;
    std::set<std::string> hidden = model.Hidden();
    hidden.insert(name);
    SetHidden(std::move(hidden));
    Say(TraceText("isHidden", "%1 is hidden. Shift+H shows all channels again.", name));
}

void TraceView::Impl::SetHidden(std::set<std::string> names) {
    model.SetHidden(std::move(names));
    StoreHidden();
    Refresh();
}

void TraceView::Impl::ShowAll() {
    SetHidden({});
}

void TraceView::Impl::MontageChanged() {
    model.Reload();
    const std::string& name = recording.GetTraceInfo()->GetMtg().GetName();
    if (name != montage) {
        montage = name;
        LoadHidden();
    }
    boxes.ShowMontages(*recording.GetMontageList(), name);
    Refresh();
}

} // namespace orvanta::review
