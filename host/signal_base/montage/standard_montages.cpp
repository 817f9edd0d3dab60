// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/standard_montages.h"

#include "host/signal_base/montage/bipolar_chains.h"
#include "host/signal_base/montage/builders.h"
#include "host/signal_base/sensors/positions.h"

#include <algorithm>

namespace orvanta::signal {

namespace {

using Kind = MontageType::Kind;
using Channels = std::vector<std::shared_ptr<ChnType>>;

/// Every electrode but the two against their mean; empty unless both were recorded.
MontageType LinkedMontage(const Sensors& sensors, const char* name, const char* left, const char* right) {
    const SensorType* first = FindElectrode(sensors, left);
    const SensorType* second = FindElectrode(sensors, right);
    Channels channels;
    if (first != nullptr && second != nullptr) {
        for (const SensorType* sensor : Electrodes(sensors)) {
            if (sensor != first && sensor != second) {
                channels.push_back(MakeChannel(sensor->GetName() + "-" + left + right,
                                               {{sensor, 1}, {first, -0.5}, {second, -0.5}}));
            }
        }
    }
    return MakeMontage(name, Kind::Reference, std::move(channels));
}

} // namespace

MontageType AsRecordedMontage(const Sensors& sensors) {
    Channels channels;
    for (const auto& sensor : sensors) {
        if (sensor->IsEeg()) {
            const std::string suffix = "-" + sensor->GetReference();
            const bool told = suffix.size() == 1 || sensor->GetName().ends_with(suffix);
            channels.push_back(
                MakeChannel(told ? sensor->GetName() : sensor->GetName() + suffix, {{sensor.get(), 1}}));
        }
    }
    return MakeMontage("As recorded", Kind::AsRecorded, std::move(channels));
}

MontageType ReferenceMontage(const Sensors& sensors, const SensorType* reference) {
    Channels channels;
    for (const SensorType* sensor : Electrodes(sensors)) {
        if (reference != nullptr && sensor != reference) {
            channels.push_back(MakeDifference(*sensor, *reference));
        }
    }
    return MakeMontage(reference == nullptr ? "Reference" : "Reference " + reference->GetName(),
                       Kind::Reference, std::move(channels));
}

const SensorType* DefaultReference(const Sensors& sensors) {
    for (const char* name : {"Cz", "Fz", "Pz"}) {
        if (const SensorType* midline = FindElectrode(sensors, name)) {
            return midline;
        }
    }
    const std::vector<const SensorType*> electrodes = Electrodes(sensors);
    const auto scalp = std::find_if(electrodes.begin(), electrodes.end(), [](const SensorType* sensor) {
        return !(sensor->GetElectInfo().Known && IsEar(sensor->GetElectrode()));
    });
    return electrodes.empty() ? nullptr : scalp == electrodes.end() ? electrodes.front() : *scalp;
}

MontageType AverageMontage(const Sensors& sensors) {
    std::vector<const SensorType*> electrodes = Electrodes(sensors);
    const auto inside = [](const SensorType* sensor) { return sensor->GetType() == Sensor::IntracranialEeg; };
    if (!std::all_of(electrodes.begin(), electrodes.end(), inside)) {
        std::erase_if(electrodes, inside);
    }
    std::vector<const SensorType*> good = electrodes;
    std::erase_if(good, [](const SensorType* sensor) { return sensor->IsBad(); });

    Channels channels;
    if (good.size() > 1) {
        const auto common = std::make_shared<const std::vector<const SensorType*>>(std::move(good));
        for (const SensorType* sensor : electrodes) {
            channels.push_back(MakeChannel(sensor->GetName() + "-Avg", {{sensor, 1}}, common));
        }
    }
    return MakeMontage("Average reference", Kind::AverageReference, std::move(channels));
}

std::unique_ptr<MontageList> StandardMontages(const Sensors& sensors) {
    auto impl = std::make_unique<MontageList::Impl>();
    const auto add = [&](MontageType montage) {
        impl->montages.push_back(std::make_shared<MontageType>(std::move(montage)));
        return impl->montages.size() - 1;
    };
    const auto addUnlessEmpty = [&](MontageType montage) {
        if (montage.GetNumTraces() > 0) {
            add(std::move(montage));
        }
    };
    impl->unipolar = add(AsRecordedMontage(sensors));
    addUnlessEmpty(LongitudinalMontage(sensors));
    addUnlessEmpty(TransverseMontage(sensors));
    addUnlessEmpty(AverageMontage(sensors));
    impl->reference = add(ReferenceMontage(sensors, DefaultReference(sensors)));
    addUnlessEmpty(LinkedMontage(sensors, "Linked ears", "A1", "A2"));
    addUnlessEmpty(LinkedMontage(sensors, "Linked mastoids", "M1", "M2"));
    return std::make_unique<MontageList>(std::move(impl));
}

} // namespace orvanta::signal
