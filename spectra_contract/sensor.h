// SPDX-License-Identifier: GPL-3.0-or-later
// Sensors: the electrodes and auxiliary inputs of a recording.
#pragma once

#include "spectra_contract/api.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>

namespace Sensor {

/// Which sensors a list is asked for.
enum class Class : int {
    Eeg = 1,      ///< the EEG sensors
    Acquired = 3, ///< every signal with an acquisition rate; never empty when Eeg is not
};

/// Type codes. A code belongs to a family when (code & family) == family.
enum Type : std::uint32_t {
    EegFamily = 0x20000,
    ScalpEeg = 0x20001,        ///< a known scalp position
    IntracranialEeg = 0x20002, ///< depth, strip and grid contacts
    UnplacedEeg = 0x20004,     ///< EEG with a label that names no position
    Eog = 0x40001,
    Ecg = 0x40002,
    Emg = 0x40004,
    Respiration = 0x40008,
    OtherSignal = 0x40010, ///< a signal that is none of the above
    Status = 0x80001,      ///< trigger and status words
    Annotations = 0x80002, ///< annotation channels
};

} // namespace Sensor

/// A point on the head: x to the right ear, y to the nose, z up, on a sphere of radius 1.
struct HeadPosition {
    double x = 0;
    double y = 0;
    double z = 0;

    bool operator==(const HeadPosition&) const = default;
};

/// Name and position of an electrode, for maps. \p Known is false for a name without a standard position.
struct ElectInfo {
    std::string Name;
    HeadPosition Position;
    bool Known = false;
};

/// One sensor of a recording. Owned by the recording and valid as long as it is open.
class ORVANTA_API SensorType {
public:
    struct Impl;
    explicit SensorType(std::unique_ptr<Impl> impl);
    ~SensorType();
    SensorType(const SensorType&) = delete;
    SensorType& operator=(const SensorType&) = delete;

    /// Short name such as "Fp1", unique within the recording.
    const std::string& GetName() const;
    /// A code of Sensor::Type.
    std::uint32_t GetType() const;
    /// True for a sampled signal, false for status and annotation channels.
    bool IsSignal() const;
    /// True for a sensor that is computed from others and was not recorded.
    bool IsVirtual() const;
    /// Acquisition rate in Hz, rounded to a whole number; 0 when there is none.
    std::uint32_t GetAcqSR() const;

    /// Acquisition rate in Hz as recorded.
    double GetRateHz() const;
    /// Unit of the values that analyses get: "µV" for every voltage, "raw" for values that the file gives no
    /// usable calibration for, else the recorded unit.
    const std::string& GetUnit() const;
    bool IsEeg() const { return (GetType() & Sensor::EegFamily) == Sensor::EegFamily; }
    /// Name and standard 10-05 position, with Known false when the name has none.
    ElectInfo GetElectInfo() const;
    /// The single electrode that was recorded, such as "Fp1"; empty for a recorded difference of two scalp
    /// electrodes and for what is not EEG.
    const std::string& GetElectrode() const;
    /// What it was recorded against, such as "M2" or "LE"; empty when the label does not tell.
    const std::string& GetReference() const;
    /// The label as recorded, such as "EEG Fp1-Ref".
    const std::string& GetRecordedLabel() const;
    /// Index of the sensor among the recording's signals, in file order.
    std::size_t GetSignalIndex() const;
    /// A sensor marked bad takes no part in average references; neither does one in raw values.
    bool IsBad() const;
    void SetBad(bool bad);

private:
    std::unique_ptr<Impl> impl_;
};

/// Sensors in the order of the recording; not owned.
using SensorList = std::list<const SensorType*>;
