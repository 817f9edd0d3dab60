// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/montage/builders.h"

#include "host/signal_base/sensors/positions.h"
#include "host/signal_base/text.h"

namespace orvanta::signal {

std::shared_ptr<ChnType> MakeChannel(std::string name, std::vector<ChannelTerm> terms,
                                     CommonAverage commonAverage) {
    auto impl = std::make_unique<ChnType::Impl>();
    impl->name = std::move(name);
    impl->position = terms.front().Sensor->GetName();
    impl->terms = std::move(terms);
    impl->commonAverage = std::move(commonAverage);
    return std::make_shared<ChnType>(std::move(impl));
}

std::shared_ptr<ChnType> MakeDifference(const SensorType& first, const SensorType& second) {
    return MakeChannel(first.GetName() + "-" + second.GetName(), {{&first, 1}, {&second, -1}});
}

MontageType MakeMontage(std::string name, MontageType::Kind kind,
                        std::vector<std::shared_ptr<ChnType>> channels) {
    auto impl = std::make_unique<MontageType::Impl>();
    impl->name = std::move(name);
    impl->kind = kind;
    impl->channels = std::move(channels);
    return MontageType(std::move(impl));
}

MontageType Renamed(const MontageType& montage, std::string name) {
    std::vector<std::shared_ptr<ChnType>> channels;
    for (auto channel = montage.BeginChn(); channel != montage.EndChn(); ++channel) {
        channels.push_back((*channel)->Copy());
    }
    return MakeMontage(std::move(name), montage.GetKind(), std::move(channels));
}

std::vector<const SensorType*> Electrodes(const Sensors& sensors) {
    std::vector<const SensorType*> electrodes;
    for (const auto& sensor : sensors) {
        if (!sensor->GetElectrode().empty()) {
            electrodes.push_back(sensor.get());
        }
    }
    return electrodes;
}

const SensorType* FindElectrode(const Sensors& sensors, const std::string& name) {
    const std::string modern = ModernName(name);
    for (const SensorType* sensor : Electrodes(sensors)) {
        if (sensor->GetElectInfo().Known && SameText(ModernName(sensor->GetElectrode()), modern)) {
            return sensor;
        }
    }
    return nullptr;
}

} // namespace orvanta::signal
