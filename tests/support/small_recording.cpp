// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/small_recording.h"

#include "tests/support/temp_folder.h"

#include <stdexcept>

namespace orvanta::test {

namespace {

constexpr std::size_t kRate = 8;

std::vector<double> Residues(std::size_t count, std::size_t square, std::size_t linear, std::size_t modulus) {
    std::vector<double> values;
    for (std::size_t i = 0; i < count; ++i) {
        values.push_back(static_cast<double>((square * i * i + linear * i) % modulus) -
                         static_cast<double>(modulus / 2));
    }
    return values;
}

} // namespace

std::vector<double> Fp1Values(std::size_t count) {
    return Residues(count, 7, 3, 23);
}

std::vector<double> F3Values(std::size_t count) {
    return Residues(count, 5, 11, 19);
}

std::vector<double> CzValues(std::size_t count) {
    return Residues(count, 1, 13, 17);
}

signal::RecordingData SmallData(std::size_t seconds, const std::vector<signal::Annotation>& annotations,
                                const std::vector<Gap>& gaps) {
    const std::size_t count = seconds * kRate;
    return MakeData({{"Fp1", kRate, Fp1Values(count), "uV"},
                     {"F3", kRate, F3Values(count), "uV"},
                     {"Cz", kRate, CzValues(count), "uV"}},
                    annotations, gaps);
}

std::unique_ptr<EEGFileInfoType> SmallRecording(std::size_t seconds,
                                                const std::vector<signal::Annotation>& annotations,
                                                const std::vector<Gap>& gaps) {
    return signal::MakeRecording(SmallData(seconds, annotations, gaps));
}

SpectraMacro SmallMacro(const std::string& taper, unsigned overlap) {
    SpectraMacro macro;
    macro.SetFFTSeconds(1);
    macro.SetDSPWindowStr(taper);
    macro.SetOverlapPerc(overlap);
    return macro;
}

MontageType MontageOf(const EEGFileInfoType& recording, const std::string& lines) {
    const TempFolder folder;
    return signal::ReadMontageFile(folder.Write("made.montage", lines), *recording.GetTraceInfo()).at(0);
}

SensorType* SensorOf(const EEGFileInfoType& recording, const std::string& name) {
    SensorType* sensor = recording.GetTraceInfo()->FindSensor(name);
    if (sensor == nullptr) {
        throw std::invalid_argument("no sensor " + name);
    }
    return sensor;
}

} // namespace orvanta::test
