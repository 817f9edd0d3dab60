// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/results/montage_nodes.h"

#include <map>
#include <unordered_map>
#include <utility>

namespace orvanta::spectral {

namespace {

/// Node -> weight, of one linear combination.
using Combination = std::map<std::uint32_t, double>;

class Layout {
public:
    Layout(MontageNodes& nodes, bool cross)
        : nodes_(nodes), sensorCount_(static_cast<std::uint32_t>(nodes.sensors.size())), cross_(cross) {
        for (std::uint32_t i = 0; i < sensorCount_; ++i) {
            nodeOfSensor_.emplace(nodes_.sensors[i], i);
        }
        nodes_.rows = sensorCount_;
    }

    std::optional<TraceRow> Add(const ChnType& channel) {
        std::optional<Combination> combination = CombinationOf(channel);
        if (!combination) {
            return std::nullopt;
        }
        return TraceRow{RowOf(*combination), cross_ ? PairOf(channel) : std::nullopt};
    }

private:
    std::optional<std::uint32_t> NodeOf(const SensorType* sensor) const {
        const auto found = nodeOfSensor_.find(sensor);
        return found == nodeOfSensor_.end() ? std::nullopt : std::optional(found->second);
    }

    /// Equal sensors are added up, shares of 0 left out; none when a sensor is unknown.
    std::optional<Combination> CombinationOf(const ChnType& channel) {
        Combination combination;
        for (const ChannelTerm& term : channel.GetTerms()) {
            const auto node = NodeOf(term.Sensor);
            if (!node) {
                return std::nullopt;
            }
            combination[*node] += term.Weight;
        }
        if (!channel.GetCommonAverage().empty()) {
            const auto mean = MeanNode(channel.GetCommonAverage());
            if (!mean) {
                return std::nullopt;
            }
            combination[*mean] -= 1;
        }
        std::erase_if(combination, [](const auto& share) { return share.second == 0; });
        return combination;
    }

    std::optional<std::uint32_t> MeanNode(const std::vector<const SensorType*>& average) {
        if (const auto known = meanOf_.find(average); known != meanOf_.end()) {
            return known->second;
        }
        DerivedNode mean{{}, false};
        for (const SensorType* sensor : average) {
            const auto node = NodeOf(sensor);
            if (!node) {
                return std::nullopt;
            }
            mean.terms.push_back({*node, 1.0 / static_cast<double>(average.size())});
        }
        return meanOf_[average] = AddDerived(std::move(mean));
    }

    std::uint32_t RowOf(const Combination& combination) {
        if (combination.size() == 1 && combination.begin()->first < sensorCount_ &&
            combination.begin()->second == 1) {
            return combination.begin()->first;
        }
        const auto [known, isNew] = rowOf_.try_emplace(combination, nodes_.rows);
        if (isNew) {
            DerivedNode node;
            for (const auto& [source, weight] : combination) {
                node.terms.push_back({source, weight});
            }
            if (node.terms.empty()) { // a sensor against itself: the signal that is 0 throughout
                node.terms.push_back({0, 0});
            }
            AddDerived(std::move(node));
            ++nodes_.rows;
        }
        return known->second;
    }

    std::optional<std::uint32_t> PairOf(const ChnType& channel) {
        const auto [first, second] = channel.GetElectrodes();
        const auto x = NodeOf(first);
        const auto y = NodeOf(second);
        if (!x || !y || *x == *y) {
            return std::nullopt;
        }
        const auto [known, isNew] =
            pairOf_.try_emplace({*x, *y}, static_cast<std::uint32_t>(nodes_.pairs.size()));
        if (isNew) {
            nodes_.pairs.push_back({*y, *x});
        }
        return known->second;
    }

    std::uint32_t AddDerived(DerivedNode node) {
        nodes_.derived.push_back(std::move(node));
        return sensorCount_ + static_cast<std::uint32_t>(nodes_.derived.size()) - 1;
    }

    MontageNodes& nodes_;
    std::uint32_t sensorCount_;
    bool cross_;
    std::unordered_map<const SensorType*, std::uint32_t> nodeOfSensor_;
    std::map<std::vector<const SensorType*>, std::uint32_t> meanOf_;
    std::map<Combination, std::uint32_t> rowOf_;
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> pairOf_;
};

} // namespace

MontageNodes LayOut(std::vector<const SensorType*> sensors, const MontageType& montage, bool cross) {
    MontageNodes nodes;
    nodes.sensors = std::move(sensors);
    Layout layout(nodes, cross);
    for (auto channel = montage.BeginChn(); channel != montage.EndChn(); ++channel) {
        nodes.channels.push_back({*channel, layout.Add(**channel)});
    }
    return nodes;
}

} // namespace orvanta::spectral
