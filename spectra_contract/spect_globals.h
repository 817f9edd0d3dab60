// SPDX-License-Identifier: GPL-3.0-or-later
// Settings shared by all analyses of the process.
#pragma once

#include "spectra_contract/spectra_types.h"

class GenericPlatform;

namespace SPECT {

/// Bands, total band, measure selection and measure entity. One object per process, on the GUI thread.
class ORVANTA_API Globals {
public:
    /// Delta 0.5–4, Theta 4–8, Alpha 8–13, Beta 13–30, Gamma 30–45 Hz, three undefined; total 0.5–45 Hz;
    /// every band and measure selected; entity power.
    Globals();

    Entity::Type GetMeasEntity() const { return entity_; }
    void SetMeasEntity(Entity::Type entity) { entity_ = entity; }
    /// Stores bands, total band and the selections in section "Spectrum" of the user's settings.
    void SaveInfo(GenericPlatform* platform) const;
    /// Reads what SaveInfo stored, every finite pair of edges as it was; what is missing or wrong keeps the
    /// value it had.
    void LoadInfo(GenericPlatform* platform);

    Band Bands[BandCount];
    double TotalLo = 0.5;
    double TotalHi = 45;
    bool MeasSelected[Meas::Count];

private:
    Entity::Type entity_ = Entity::Type::Power;
};

ORVANTA_API Globals& GetGlobals();

} // namespace SPECT
