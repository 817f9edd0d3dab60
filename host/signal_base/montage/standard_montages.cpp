// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/standard_montages.h"

#include "host/signal_base/montage/bipolar_chains.h"
#include "host/signal_base/montage/builders.h"
#include "host/signal_base/sensors/positions.h"
#include "host/signal_base/sensors/references.h"
#include "host/signal_base/text.h"

#include <algorithm>
#include <map>

namespace orvanta::signal {

namespace {

using Kind = MontageType::Kind;
using Channels = std::vector<std::shared_ptr<ChnType>>;

/// Every electrode but the two against their mean; empty unless both were recorded in the same way.
MontageType LinkedMontage(const Sensors& sensors, const char* name, const char* left, const char* right) {
    const SensorType* first = FindElectrode(sensors, left);
    const SensorType* second = FindElectrode(sensors, right);
    Channels channels;
    if (first != nullptr && second != nullptr && Comparable(*first, *second)) {
        for (const SensorType* sensor : Electrodes(sensors)) {
            if (sensor != first && sensor != second && Comparable(*sensor, *first)) {
                channels.push_back(MakeChannel(sensor->GetName() + "-" + left + right,
                                               {{sensor, 1}, {first, -0.5}, {second, -0.5}}));
            }
        }
    }
    return MakeMontage(name, Kind::Reference, std::move(channels));
}

/// Those recorded against one reference that are more than half of all; none when no reference has so many.
std::vector<const SensorType*> MostComparable(std::vector<const SensorType*> sensors) {
    std::erase_if(sensors, [](const SensorType* sensor) { return !Comparable(*sensor, *sensor); });
    std::map<std::string, std::size_t> uses;
    for (const SensorType* sensor : sensors) {
        ++uses[LowerCase(sensor->GetReference())];
    }
    const std::size_t all = sensors.size();
    std::erase_if(sensors, [&](const SensorType* sensor) {
        return 2 * uses[LowerCase(sensor->GetReference())] <= all;
    });
    return sensors;
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
        if (reference != nullptr && sensor != reference && Comparable(*sensor, *reference)) {
            channels.push_back(MakeDifference(*sensor, *reference));
        }
    }
    return MakeMontage(reference == nullptr ? "Reference" : "Reference " + reference->GetName(),
                       Kind::Reference, std::move(channels));
}

const SensorType* DefaultReference(const Sensors& sensors) {
    const std::vector<const SensorType*> all = Electrodes(sensors);
    const std::vector<const SensorType*> most = MostComparable(all);
    const std::vector<const SensorType*>& electrodes = most.empty() ? all : most;
    for (const char* name : {"Cz", "Fz", "Pz"}) {
        const SensorType* midline = FindElectrode(sensors, name);
        if (std::find(electrodes.begin(), electrodes.end(), midline) != electrodes.end()) {
            return midline;
        }
    }
    const auto scalp = std::find_if(electrodes.begin(), electrodes.end(), [](const SensorType* sensor) {
        return !(sensor->GetElectInfo().Known && IsEar(sensor->GetElectrode()));
    });
    return electrodes.empty() ? nullptr : scalp == electrodes.end() ? electrodes.front() : *scalp;
}

MontageType AverageMontage(const Sensors& sensors, const SensorList& chosen) {
    std::vector<const SensorType*> electrodes = Electrodes(sensors);
    const auto inside = [](const SensorType* sensor) { return sensor->GetType() == Sensor::IntracranialEeg; };
    if (!std::all_of(electrodes.begin(), electrodes.end(), inside)) {
        std::erase_if(electrodes, inside);
    }
    electrodes = MostComparable(electrodes);
    std::vector<const SensorType*> good = electrodes;
    std::erase_if(good, [](const SensorType* sensor) { return sensor->IsBad(); });
    std::vector<const SensorType*> wanted = good;
    std::erase_if(wanted, [&](const SensorType* sensor) {
        return std::find(chosen.begin(), chosen.end(), sensor) == chosen.end();
    });
    if (wanted.size() > 1) {
        good = std::move(wanted);
    }

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
    MontageType reference = ReferenceMontage(sensors, DefaultReference(sensors));
    impl->reference = reference.GetNumTraces() > 0 ? add(std::move(reference)) : impl->unipolar;
    addUnlessEmpty(LinkedMontage(sensors, "Linked ears", "A1", "A2"));
    addUnlessEmpty(LinkedMontage(sensors, "Linked mastoids", "M1", "M2"));
    return std::make_unique<MontageList>(std::move(impl));
}

} // namespace orvanta::signal
