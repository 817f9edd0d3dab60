// SPDX-License-Identifier: GPL-3.0-or-later
// Montages: which differences and combinations of sensors are shown and analysed.
#pragma once

#include "spectra_contract/sensor.h"

#include <memory>
#include <string>
#include <vector>

class SpectrumSingle;

/// One sensor's share in a channel.
struct ChannelTerm {
    const SensorType* Sensor = nullptr;
    double Weight = 0;

    bool operator==(const ChannelTerm&) const = default;
};

/// One channel of a montage: a linear combination of sensors.
class ORVANTA_API ChnType {
public:
    struct Impl;
    explicit ChnType(std::unique_ptr<Impl> impl);
    virtual ~ChnType();
    ChnType(const ChnType&) = delete;
    ChnType& operator=(const ChnType&) = delete;

    /// Label such as "Fp1-F3".
    const std::string& GetName() const;
    /// Label of the position at which the channel stands on a map: its first electrode's name.
    const std::string& GetLabelPos() const;
    /// The electrodes and their weights, the common term of an average reference left out.
    const std::vector<ChannelTerm>& GetTerms() const;
    /// Sensors whose mean is subtracted (average reference); empty for every other channel.
    const std::vector<const SensorType*>& GetCommonAverage() const;
    /// The two electrodes of a difference, for coherence and phase; both null for any other combination.
    std::pair<const SensorType*, const SensorType*> GetElectrodes() const;
    /// Whether the channel shows \p spectrum, told by its name: the spectrum of this channel, or of the
    /// channel's first electrode. False for null.
    virtual bool AcceptsSpectrum(const SpectrumSingle* spectrum) const;
    /// Makes the first electrode of \p other the reference: this channel's electrode is then measured against
    /// it. The channel of that electrode itself shows the former reference instead, so that a montage whose
    /// channels all take over the same channel keeps every other electrode. Does nothing for null. \p other
    /// belongs to another montage object (a copy, a computed result), or it would change on its own turn.
    void AssignChannel(const ChnType* other);

    /// A copy that can be changed by itself.
    std::shared_ptr<ChnType> Copy() const;

    /// Same name, terms and common average.
    bool operator==(const ChnType& other) const;

private:
    std::unique_ptr<Impl> impl_;
};

/// An ordered set of channels. Value type: copies are independent and compare by content.
class ORVANTA_API MontageType {
public:
    /// How the channels are built; decides IsMappable.
    enum class Kind { AsRecorded, Reference, AverageReference, Bipolar, User };
    using const_iterator = std::vector<std::shared_ptr<ChnType>>::const_iterator;

    struct Impl;
    MontageType();
    explicit MontageType(std::unique_ptr<Impl> impl);
    MontageType(const MontageType&);
    MontageType& operator=(const MontageType&);
    MontageType(MontageType&&) noexcept;
    MontageType& operator=(MontageType&&) noexcept;
    ~MontageType();

    /// A reference montage is named after its present reference.
    const std::string& GetName() const;
    Kind GetKind() const;
    std::size_t GetNumTraces() const;
    /// Channel \p index, or null when there is none.
    ChnType* GetChn(std::size_t index) const;
    const_iterator BeginChn() const;
    const_iterator EndChn() const;
    /// True when every channel stands for one electrode position (as recorded, one reference, average).
    bool IsMappable() const;
    /// Number of bipolar channels: 0 when the channels have no or one common second electrode, else all.
    unsigned GetNumBip() const;
    /// Same name and equal channels in the same order.
    bool operator==(const MontageType& other) const;

private:
    std::unique_ptr<Impl> impl_;
};

/// The montages that a recording offers.
class ORVANTA_API MontageList {
public:
    using const_iterator = std::vector<std::shared_ptr<MontageType>>::const_iterator;

    struct Impl;
    explicit MontageList(std::unique_ptr<Impl> impl);
    ~MontageList();
    MontageList(const MontageList&) = delete;
    MontageList& operator=(const MontageList&) = delete;

    const_iterator begin() const;
    const_iterator end() const;
    std::size_t Size() const;
    std::size_t GetCurrentIndex() const;
    void SetCurrentIndex(std::size_t index);
    /// Montage \p index, or null.
    MontageType* Get(std::size_t index) const;
    /// The montage named \p name (case ignored), or null.
    MontageType* Find(const std::string& name) const;
    /// The "as recorded" montage; never null.
    MontageType* GetUniMtg() const;
    /// The reference montage (every electrode against a chosen one), or "as recorded" where none can be made;
    /// never null.
    MontageType* GetRefMtg() const;
    /// Appends a user montage and returns its index. A user montage of the same name (case ignored) is
    /// replaced; one that is named as a standard montage gets " (user)" behind its name.
    std::size_t Add(MontageType montage);
    /// Adds these in place of all user montages. The current one stays so when there still is one of its
    /// name; else "as recorded" becomes it. What is in use is the recording's business.
    void ReplaceUser(std::vector<MontageType> montages);

private:
    std::unique_ptr<Impl> impl_;
};
