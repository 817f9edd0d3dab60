// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra of sensors and channels.
#pragma once

#include "spectra_contract/spectra_types.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class ChnType;
class SensorType;

/// One spectrum: of a sensor or channel, over all epochs or of one epoch. All values are in the current
/// measure entity (SPECT::Globals::GetMeasEntity); what is not computable is a quiet NaN.
class ORVANTA_API SpectrumSingle {
public:
    struct Impl;
    explicit SpectrumSingle(std::shared_ptr<const Impl> impl);
    virtual ~SpectrumSingle();
    SpectrumSingle(const SpectrumSingle&) = default;
    SpectrumSingle& operator=(const SpectrumSingle&) = default;

    /// Name of the sensor or channel.
    virtual const std::string& GetName() const = 0;
    /// Mean value at a bin; NaN beyond the last bin.
    double GetValue(std::uint64_t bin) const;
    /// Fills the mean spectrum, one value per bin 0 … p/2.
    void GetSpect(std::vector<double>& values) const;
    /// Fills the standard deviation over epochs (n − 1) per bin; NaN for a single epoch.
    void GetSpectSD(std::vector<double>& values) const;
    /// Measure of band \p band (0 to 7; -1 for the total band); NaN when not computable.
    double GetMeasure(int band, SPECT::Meas::Type measure) const;
    /// Coherence and phase at a bin; NaN in both without a second electrode.
    SpectSample GetSample(std::uint64_t bin) const;

protected:
    std::shared_ptr<const Impl> impl_;
};

class ORVANTA_API SpectrumSens : public SpectrumSingle {
public:
    SpectrumSens(std::shared_ptr<const Impl> impl, const SensorType* sensor);
    const SensorType* GetSensor() const { return sensor_; }
    const std::string& GetName() const override;

private:
    const SensorType* sensor_;
};

class ORVANTA_API SpectrumChn : public SpectrumSingle {
public:
    SpectrumChn(std::shared_ptr<const Impl> impl, std::shared_ptr<const ChnType> channel);
    const ChnType* GetChn() const { return channel_.get(); }
    const std::string& GetName() const override;

private:
    std::shared_ptr<const ChnType> channel_;
};
