// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/classify.h"

#include "host/signal_base/limited_list.h"
#include "host/signal_base/recording.h"
#include "host/signal_base/sensors/label.h"
#include "host/signal_base/sensors/references.h"
#include "host/signal_base/sensors/sensor_impl.h"
#include "host/signal_base/text.h"
#include "host/signal_base/units.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>

namespace orvanta::signal {

namespace {

constexpr const char* kMicrovolt = "\u00B5V";
/// Texts found in the unit field of channels that were never calibrated.
constexpr std::array<std::string_view, 9> kNoUnits{"",     "raw", "adc",  "counts", "au",
                                                   "a.u.", "n/a", "none", "unknown"};
/// Units of quantities that no electrode records.
constexpr std::array<std::string_view, 36> kOtherUnits{
    "mmhg", "cmh2o", "kpa",  "pa",  "bar", "mbar", "%",    "degc",  "\u00B0c", "deg",    "\u00B0", "c",
    "k",    "bpm",   "/min", "rpm", "l",   "ml",   "l/s",  "l/min", "ml/s",    "ml/min", "hz",     "s",
    "ms",   "g",     "m/s2", "db",  "lux", "ohm",  "kohm", "a",     "ma",      "t",      "ft",     "boolean"};
/// Stems that number channels of any kind.
constexpr std::array<std::string_view, 15> kPlainStems{"eeg",  "ch",  "chan", "channel", "ex",
                                                       "exg",  "aux", "bip",  "dc",      "misc",
                                                       "trig", "in",  "din",  "ref",     "gnd"};

template <std::size_t N>
bool IsOneOf(const std::array<std::string_view, N>& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

struct Signal {
    const SignalHeader* header = nullptr;
    ParsedLabel label;
    std::optional<double> microvolts; ///< in its unit; none when that is no voltage
    bool noUnit = false;
    bool otherQuantity = false;

    bool MayBeEeg() const { return header->rate_hz > 0 && (microvolts || noUnit); }
    bool IsEeg() const { return label.type && (*label.type & Sensor::EegFamily) != 0; }
};

std::vector<Signal> ReadLabels(const RecordingData& data, std::vector<std::string>& repairs) {
    std::vector<Signal> signals;
    LimitedList dropped(repairs, "");
    for (const SignalHeader& header : data.signals) {
        Signal signal{&header, ParseLabel(header.label), MicrovoltsPer(NormalUnit(header.unit))};
        const std::string unit = LowerCase(Trim(header.unit));
        signal.noUnit = !signal.microvolts && (!header.calibrated || IsOneOf(kNoUnits, unit));
        signal.otherQuantity = header.calibrated && IsOneOf(kOtherUnits, unit);
        if (header.annotations) {
            signal.label.type = Sensor::Annotations;
        } else if (header.status) {
            signal.label.type = Sensor::Status;
        } else if (signal.IsEeg() && (signal.otherQuantity || !(header.rate_hz > 0))) {
            signal.label.type = Sensor::OtherSignal;
            dropped.Add("channel \"" + header.label + "\" is named as EEG but " +
                        (signal.otherQuantity ? "in " + header.unit : "without samples") +
                        ", taken as another signal");
        }
        signals.push_back(std::move(signal));
    }
    return signals;
}

/// Caps numbered by bundle and nets use one letter, rows of contacts inside the skull mostly more.
Sensor::Type TypeOfContact(const std::string& stem) {
    return stem.size() > 1 ? Sensor::IntracranialEeg : Sensor::UnplacedEeg;
}

/// Numbered rows of contacts override what single names seem to say: the A1 of A1 ... A32 is no ear.
void FindContactRows(std::vector<Signal>& signals) {
    std::map<std::string, std::map<unsigned, Signal*>> rows;
    for (Signal& signal : signals) {
        const std::optional<Contact> contact = ParseContact(signal.label.name);
        const bool open = !signal.label.type || signal.IsEeg() || signal.label.type == Sensor::OtherSignal;
        if (contact && open && signal.MayBeEeg()) {
            rows[contact->stem].emplace(contact->number, &signal);
        }
    }
    for (const auto& [stem, row] : rows) {
        const bool plain = IsOneOf(kPlainStems, stem);
        const bool dense = row.size() >= 4 && row.rbegin()->first * 3 <= row.size() * 4;
        const bool unknown = std::any_of(row.begin(), row.end(),
                                         [](const auto& contact) { return !contact.second->label.known; });
        if (plain || !dense || !unknown) {
            continue;
        }
        for (const auto& [number, signal] : row) {
            if (signal->label.type != Sensor::IntracranialEeg) {
                signal->label.type = TypeOfContact(stem);
            }
            signal->label.placed = false;
            signal->label.pair = false;
        }
    }
}

/// Sleep recordings call the eyes E1 and E2, unless these begin a numbered net.
void FindEyes(std::vector<Signal>& signals) {
    const auto electrode = [](const Signal& signal) {
        return LowerCase(signal.label.name.substr(0, signal.label.name.find('-')));
    };
    const bool net = std::any_of(signals.begin(), signals.end(),
                                 [&](const Signal& signal) { return electrode(signal) == "e3"; });
    for (Signal& signal : signals) {
        const std::string name = electrode(signal);
        if (!net && !signal.label.type && (name == "e1" || name == "e2")) {
            signal.label.type = Sensor::Eog;
        }
    }
}

/// One common scalp reference makes electrodes of what look like differences.
void FindCommonReference(std::vector<Signal>& signals) {
    std::set<std::string> references;
    std::size_t pairs = 0;
    for (const Signal& signal : signals) {
        if (signal.label.pair) {
            references.insert(signal.label.reference);
            ++pairs;
        }
    }
    if (references.size() == 1 && pairs >= 3) {
        for (Signal& signal : signals) {
            signal.label.pair = false;
        }
    }
}

/// Voltages labelled as a contact, or as the difference of two, are EEG in any company.
void FindSingleContacts(std::vector<Signal>& signals) {
    for (Signal& signal : signals) {
        const std::string_view name = signal.label.name;
        const std::size_t dash = std::min(name.find('-'), name.size());
        const std::optional<Contact> contact = ParseContact(name.substr(0, dash));
        if (signal.label.type || !contact || !signal.microvolts || !signal.MayBeEeg() ||
            IsOneOf(kPlainStems, contact->stem)) {
            continue;
        }
        signal.label.type = TypeOfContact(contact->stem);
        signal.label.pair = dash < name.size() && ParseContact(name.substr(dash + 1)).has_value();
    }
}

void DecideUnknown(std::vector<Signal>& signals) {
    const bool noneKnown = std::all_of(signals.begin(), signals.end(), [](const Signal& signal) {
        return !signal.label.type || signal.header->annotations || signal.header->status;
    });
    const bool anyVoltage = std::any_of(signals.begin(), signals.end(), [](const Signal& signal) {
        return !signal.label.type && signal.microvolts.has_value();
    });
    FindSingleContacts(signals);
    for (Signal& signal : signals) {
        if (!signal.label.type) {
            const bool eeg = noneKnown && signal.MayBeEeg() && (signal.microvolts || !anyVoltage);
            signal.label.type = eeg ? Sensor::UnplacedEeg : Sensor::OtherSignal;
        }
    }
}

std::string Renaming(const std::string& label, const std::string& name) {
    return "the one labelled \"" + label + "\" is called \"" + name + "\"";
}

/// Electrodes are named by themselves where that is unambiguous, else with their reference.
std::vector<std::string> MakeNames(const std::vector<Signal>& signals, std::vector<std::string>& repairs) {
    std::map<std::string, int> uses;
    for (const Signal& signal : signals) {
        ++uses[LowerCase(signal.label.name)];
    }
    std::vector<std::string> names;
    std::set<std::string> taken;
    std::map<std::string, int> copies; // the last number given, so that many equal names cost no search
    LimitedList renamed(repairs, "two channels have one name: ");
    for (const Signal& signal : signals) {
        const ParsedLabel& label = signal.label;
        const std::string stem = label.pair || uses[LowerCase(label.name)] > 1 ? label.full : label.name;
        std::string name = stem;
        int& copy = copies.emplace(LowerCase(stem), 1).first->second;
        while (!taken.insert(LowerCase(name)).second) {
            name = stem;
            name.append("-").append(std::to_string(++copy));
        }
        if (name != stem && name != signal.header->label) {
            renamed.Add(Renaming(signal.header->label, name));
        }
        names.push_back(name);
    }
    return names;
}

/// Midway on the head between two electrodes.
HeadPosition Between(const HeadPosition& a, const HeadPosition& b) {
    const HeadPosition sum{a.x + b.x, a.y + b.y, a.z + b.z};
    const double length = std::hypot(sum.x, sum.y, sum.z);
    return length < 1e-9 ? HeadPosition{0, 0, 1}
                         : HeadPosition{sum.x / length, sum.y / length, sum.z / length};
}

ElectInfo Place(const Signal& signal, const std::string& name) {
    if (!signal.label.placed || signal.label.type != Sensor::ScalpEeg) {
        return {name, {}, false};
    }
    ElectInfo first = StandardPosition(signal.label.name);
    first.Name = name;
    if (signal.label.pair) {
        const ElectInfo second = StandardPosition(signal.label.reference);
        first.Position = second.Known ? Between(first.Position, second.Position) : first.Position;
    }
    return first;
}

std::string UnitOf(const Signal& signal) {
    if (!signal.header->calibrated && !signal.header->status && !signal.header->annotations) {
        return kRawUnit;
    }
    return signal.microvolts || signal.IsEeg() ? kMicrovolt : NormalUnit(signal.header->unit);
}

} // namespace

double EegMicrovolts(const SignalHeader& header) {
    return header.calibrated ? MicrovoltsPer(NormalUnit(header.unit)).value_or(1) : 1;
}

std::vector<std::shared_ptr<SensorType>> MakeSensors(const RecordingData& data,
                                                     std::vector<std::string>& repairs) {
    std::vector<Signal> signals = ReadLabels(data, repairs);
    FindEyes(signals);
    FindContactRows(signals);
    FindCommonReference(signals);
    DecideUnknown(signals);

    const std::vector<std::string> names = MakeNames(signals, repairs);
    std::vector<std::shared_ptr<SensorType>> sensors;
    LimitedList guessedUnits(repairs, "unit guessed: ");
    for (std::size_t i = 0; i < signals.size(); ++i) {
        const Signal& signal = signals[i];
        auto impl = std::make_unique<SensorType::Impl>();
        impl->elect = Place(signal, names[i]);
        impl->type = *signal.label.type;
        impl->rateHz = signal.header->rate_hz;
        impl->unit = UnitOf(signal);
        impl->recordedLabel = signal.header->label;
        impl->signal = i;
        if (signal.IsEeg() && !signal.label.pair) {
            impl->electrode = signal.label.name;
            impl->reference = signal.label.reference;
        }
        if (signal.IsEeg() && !signal.microvolts && signal.header->calibrated) {
            guessedUnits.Add("channel \"" + signal.header->label + "\" has no unit of voltage (\"" +
                             signal.header->unit + "\"), its values are taken as \u00B5V");
        }
        sensors.push_back(std::make_shared<SensorType>(std::move(impl)));
    }
    ReportReferences(sensors, repairs);
    return sensors;
}

} // namespace orvanta::signal
