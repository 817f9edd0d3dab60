// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/montage/average_electrodes.h"

#include "host/review/app/gui.h"
#include "host/review/app/main_window/text_setting.h"
#include "host/review/app/module_bridge.h"
#include "host/review/app/montage/montage_texts.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/recording.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace orvanta::review {

namespace {

constexpr const char* kSetting = "AverageElectrodes";

/// The recording's average reference; null when it has none.
const MontageType* AverageOf(const EEGFileInfoType& recording) {
    const MontageList& list = *recording.GetMontageList();
    const auto found = std::ranges::find_if(list, [](const auto& montage) {
        return montage->GetKind() == MontageType::Kind::AverageReference && montage->GetNumTraces() > 0;
    });
    return found != list.end() ? found->get() : nullptr;
}

/// The electrodes that can form it.
SensorList GoodElectrodes(const MontageType& average) {
    SensorList electrodes;
    for (auto channel = average.BeginChn(); channel != average.EndChn(); ++channel) {
        const SensorType* sensor = (*channel)->GetTerms().front().Sensor;
        if (!sensor->IsBad()) {
            electrodes.push_back(sensor);
        }
    }
    return electrodes;
}

/// Those that form it now.
SensorList Averaged(const MontageType& average) {
    const auto& common = average.GetChn(0)->GetCommonAverage();
    return {common.begin(), common.end()};
}

QStringList RememberedNames(const GenericPlatform& platform) {
    QStringList names;
    const QByteArray text = QByteArray::fromStdString(ReadText(platform, kSetting));
    const QJsonArray stored = QJsonDocument::fromJson(text).array();
    for (const auto& name : stored) {
        names << name.toString();
    }
    return names;
}

/// \param chosen among \p offered; names of electrodes that this recording did not offer stay remembered
void Remember(const SensorList& chosen, const SensorList& offered, GenericPlatform& platform) {
    if (chosen.size() == offered.size()) {
        WriteText(platform, kSetting, {});
        return;
    }
    QStringList names = RememberedNames(platform);
    for (const SensorType* sensor : offered) {
        names.removeAll(QString::fromStdString(sensor->GetName()));
    }
    for (const SensorType* sensor : chosen) {
        names << QString::fromStdString(sensor->GetName());
    }
    const QByteArray text = QJsonDocument(QJsonArray::fromStringList(names)).toJson(QJsonDocument::Compact);
    WriteText(platform, kSetting, text.toStdString());
}

void Warn(const QString& text) {
    Gui().ShowWarning(text.toStdString());
}

} // namespace

void RestoreAverageElectrodes(EEGFileInfoType& recording, const GenericPlatform& platform) {
    SensorList electrodes;
    for (const QString& name : RememberedNames(platform)) {
        if (const SensorType* sensor = recording.GetTraceInfo()->FindSensor(name.toStdString())) {
            electrodes.push_back(sensor);
        }
    }
    recording.SetAverageElectrodes(electrodes);
}

void ChooseAverageElectrodes(HWND parent, ModuleBridge& bridge, EEGFileInfoType& recording,
                             GenericPlatform& platform) {
    const MontageType* average = AverageOf(recording);
    if (average == nullptr) {
        Warn(MontageWords("noAverage",
                          "This recording has no average reference. It takes two good electrodes "
                          "recorded against the same reference."));
        return;
    }
    const SensorList offered = GoodElectrodes(*average);
    SensorList chosen = Averaged(*average);
    if (!bridge.ChooseElectrodes(parent, chosen, offered)) {
        return;
    }
    if (chosen.size() < 2) {
        Warn(MontageWords("fewElectrodes", "An average takes at least two electrodes. Nothing was changed."));
        return;
    }
    Remember(chosen, offered, platform);
    recording.SetAverageElectrodes(chosen.size() == offered.size() ? SensorList() : chosen);
}

std::string AverageRemark(const EEGFileInfoType& recording) {
    const MontageType* average = AverageOf(recording);
    if (average == nullptr) {
        return {};
    }
    const std::size_t used = Averaged(*average).size();
    const std::size_t all = GoodElectrodes(*average).size();
    if (used >= all) {
        return {};
    }
    return MontageWords("someAveraged",
                        "The average reference is the mean of %1 of %2 electrodes, as chosen in "
                        "\"Common Average Electrodes\".")
        .arg(used)
        .arg(all)
        .toStdString();
}

} // namespace orvanta::review
