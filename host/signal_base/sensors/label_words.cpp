// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/sensors/label_words.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace orvanta::signal {

namespace {

enum class Match { Whole, Start, Inside };

struct Word {
    std::string_view text;
    Match match;
    Sensor::Type type;
};

/// The first entry that fits decides.
constexpr std::array kWords = {
    Word{"annotation", Match::Inside, Sensor::Annotations},
    Word{"eog", Match::Inside, Sensor::Eog},
    Word{"loc", Match::Whole, Sensor::Eog},
    Word{"roc", Match::Whole, Sensor::Eog},
    Word{"veo", Match::Whole, Sensor::Eog},
    Word{"heo", Match::Whole, Sensor::Eog},
    Word{"eye", Match::Start, Sensor::Eog},
    Word{"ecg", Match::Inside, Sensor::Ecg},
    Word{"ekg", Match::Inside, Sensor::Ecg},
    Word{"cardio", Match::Start, Sensor::Ecg},
    Word{"emg", Match::Inside, Sensor::Emg},
    Word{"chin", Match::Start, Sensor::Emg},
    Word{"leg", Match::Whole, Sensor::Emg},
    Word{"lleg", Match::Whole, Sensor::Emg},
    Word{"rleg", Match::Whole, Sensor::Emg},
    Word{"tib", Match::Start, Sensor::Emg},
    Word{"lat", Match::Whole, Sensor::Emg},
    Word{"rat", Match::Whole, Sensor::Emg},
    Word{"mental", Match::Start, Sensor::Emg},
    Word{"submental", Match::Start, Sensor::Emg},
    Word{"resp", Match::Start, Sensor::Respiration},
    Word{"flow", Match::Inside, Sensor::Respiration},
    Word{"thor", Match::Start, Sensor::Respiration},
    Word{"abd", Match::Start, Sensor::Respiration},
    Word{"chest", Match::Start, Sensor::Respiration},
    Word{"nasal", Match::Start, Sensor::Respiration},
    Word{"cannula", Match::Start, Sensor::Respiration},
    Word{"therm", Match::Start, Sensor::Respiration},
    Word{"effort", Match::Start, Sensor::Respiration},
    Word{"snor", Match::Start, Sensor::Respiration},
    Word{"cpap", Match::Start, Sensor::Respiration},
    Word{"breath", Match::Start, Sensor::Respiration},
    Word{"status", Match::Start, Sensor::Status},
    Word{"trig", Match::Start, Sensor::Status},
    Word{"mark", Match::Start, Sensor::Status},
    Word{"event", Match::Start, Sensor::Status},
    Word{"sti", Match::Whole, Sensor::Status},
    Word{"stim", Match::Start, Sensor::Status},
    Word{"spo", Match::Start, Sensor::OtherSignal},
    Word{"sao", Match::Start, Sensor::OtherSignal},
    Word{"osat", Match::Start, Sensor::OtherSignal},
    Word{"puls", Match::Start, Sensor::OtherSignal},
    Word{"plet", Match::Start, Sensor::OtherSignal},
    Word{"ppg", Match::Start, Sensor::OtherSignal},
    Word{"hr", Match::Whole, Sensor::OtherSignal},
    Word{"heart", Match::Start, Sensor::OtherSignal},
    Word{"temp", Match::Start, Sensor::OtherSignal},
    Word{"gsr", Match::Start, Sensor::OtherSignal},
    Word{"eda", Match::Whole, Sensor::OtherSignal},
    Word{"erg", Match::Whole, Sensor::OtherSignal},
    Word{"light", Match::Start, Sensor::OtherSignal},
    Word{"sound", Match::Start, Sensor::OtherSignal},
    Word{"mic", Match::Start, Sensor::OtherSignal},
    Word{"audio", Match::Start, Sensor::OtherSignal},
    Word{"pos", Match::Whole, Sensor::OtherSignal},
    Word{"position", Match::Start, Sensor::OtherSignal},
    Word{"body", Match::Start, Sensor::OtherSignal},
    Word{"photic", Match::Start, Sensor::OtherSignal},
    Word{"dc", Match::Whole, Sensor::OtherSignal},
    Word{"aux", Match::Start, Sensor::OtherSignal},
    Word{"exg", Match::Start, Sensor::OtherSignal},
    Word{"bip", Match::Whole, Sensor::OtherSignal},
    Word{"misc", Match::Start, Sensor::OtherSignal},
    Word{"acc", Match::Start, Sensor::OtherSignal},
    Word{"gyro", Match::Start, Sensor::OtherSignal},
    Word{"co", Match::Whole, Sensor::OtherSignal},
    Word{"etco", Match::Start, Sensor::OtherSignal},
    Word{"capno", Match::Start, Sensor::OtherSignal},
    Word{"press", Match::Start, Sensor::OtherSignal},
    Word{"batt", Match::Start, Sensor::OtherSignal},
    Word{"impedance", Match::Start, Sensor::OtherSignal},
    Word{"meg", Match::Whole, Sensor::OtherSignal},
    Word{"eeg", Match::Inside, Sensor::UnplacedEeg},
};

bool IsLetter(char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

bool Fits(const Word& word, std::string_view run) {
    switch (word.match) {
    case Match::Whole:
        return run == word.text;
    case Match::Start:
        return run.starts_with(word.text);
    case Match::Inside:
        return run.find(word.text) != std::string_view::npos;
    }
    return false;
}

} // namespace

std::optional<Sensor::Type> TypeOfWords(std::string_view lowerCaseLabel) {
    for (const Word& word : kWords) {
        const auto* at = lowerCaseLabel.begin();
        while (at != lowerCaseLabel.end()) {
            const auto* first = std::find_if(at, lowerCaseLabel.end(), IsLetter);
            const auto* last = std::find_if_not(first, lowerCaseLabel.end(), IsLetter);
            if (Fits(word, std::string_view(first, last))) {
                return word.type;
            }
            at = last;
        }
    }
    return std::nullopt;
}

} // namespace orvanta::signal
