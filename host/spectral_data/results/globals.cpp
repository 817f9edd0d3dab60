// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/files/number_text.h"
#include "spectra_contract/platform.h"
#include "spectra_contract/spect_globals.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace SPECT {

namespace {

constexpr const char* kSection = "Spectrum";
constexpr int kLongestText = 255;

struct DefaultBand {
    double lo, hi;
    const char* name;
};
constexpr std::array<DefaultBand, BandCount> kDefaultBands = {{{0.5, 4, "Delta"},
                                                               {4, 8, "Theta"},
                                                               {8, 13, "Alpha"},
                                                               {13, 30, "Beta"},
                                                               {30, 45, "Gamma"},
                                                               {0, 0, ""},
                                                               {0, 0, ""},
                                                               {0, 0, ""}}};

/// Copies as much of \p name as fits, without a cut inside a character, and zeroes the rest.
void SetName(Band& band, std::string_view name) {
    std::size_t length = std::min(name.size(), sizeof band.name - 1);
    if (length < name.size()) {
        while (length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0) == 0x80) {
            --length;
        }
    }
    std::fill(std::begin(band.name), std::end(band.name), '\0');
    std::copy_n(name.begin(), length, band.name);
}

std::string NameOf(const Band& band) {
    return {band.name, strnlen(band.name, sizeof band.name)};
}

std::string BandKey(std::size_t index, const char* field) {
    return "Band" + std::to_string(index) + field;
}

/// The texts of one section.
class Section {
public:
    explicit Section(GenericPlatform* platform) : platform_(platform) {}

    std::string Read(const std::string& key, const std::string& missing) const {
        std::array<char, kLongestText + 1> buffer{};
        platform_->ReadString(kSection, key.c_str(), missing.c_str(), buffer.data(), kLongestText);
        buffer.back() = '\0';
        return buffer.data();
    }

    std::optional<double> ReadNumber(const std::string& key) const {
        const std::string text = Read(key, "");
        double value = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        const bool whole = error == std::errc() && end == text.data() + text.size();
        return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
    }

    /// Two finite numbers in any order, since a reversed band is one that is not defined; anything else
    /// leaves both as they are.
    void ReadRange(const std::string& loKey, const std::string& hiKey, double& lo, double& hi) const {
        const auto newLo = ReadNumber(loKey);
        const auto newHi = ReadNumber(hiKey);
        if (newLo && newHi) {
            lo = *newLo;
            hi = *newHi;
        }
    }

    void Write(const std::string& key, const std::string& text) const {
        platform_->WriteString(kSection, key.c_str(), text.c_str());
    }

    void WriteNumber(const std::string& key, double value) const {
        Write(key, orvanta::spectral::NumberText(value));
    }

private:
    GenericPlatform* platform_;
};

/// One character '0' or '1' per flag; any other character leaves its flag alone.
template <typename Flag>
void SetFlags(std::string_view text, std::size_t count, Flag flag) {
    for (std::size_t i = 0; i < std::min(count, text.size()); ++i) {
        if (text[i] == '0' || text[i] == '1') {
            flag(i) = text[i] == '1';
        }
    }
}

} // namespace

Globals& GetGlobals() {
    static Globals globals;
    return globals;
}

Globals::Globals() {
    for (std::size_t i = 0; i < BandCount; ++i) {
        Bands[i].lo = kDefaultBands[i].lo;
        Bands[i].hi = kDefaultBands[i].hi;
        SetName(Bands[i], kDefaultBands[i].name);
    }
    std::fill(std::begin(MeasSelected), std::end(MeasSelected), true);
}

void Globals::SaveInfo(GenericPlatform* platform) const {
    if (platform == nullptr) {
        return;
    }
    const Section section(platform);
    std::string bandSelect, measureSelect;
    for (std::size_t i = 0; i < BandCount; ++i) {
        section.WriteNumber(BandKey(i, "Lo"), Bands[i].lo);
        section.WriteNumber(BandKey(i, "Hi"), Bands[i].hi);
        section.Write(BandKey(i, "Name"), NameOf(Bands[i]));
        bandSelect += Bands[i].selected ? '1' : '0';
    }
    for (const bool selected : MeasSelected) {
        measureSelect += selected ? '1' : '0';
    }
    section.WriteNumber("TotalLo", TotalLo);
    section.WriteNumber("TotalHi", TotalHi);
    section.Write("BandSelect", bandSelect);
    section.Write("MeasureSelect", measureSelect);
}

void Globals::LoadInfo(GenericPlatform* platform) {
    if (platform == nullptr) {
        return;
    }
    const Section section(platform);
    for (std::size_t i = 0; i < BandCount; ++i) {
        section.ReadRange(BandKey(i, "Lo"), BandKey(i, "Hi"), Bands[i].lo, Bands[i].hi);
        SetName(Bands[i], section.Read(BandKey(i, "Name"), NameOf(Bands[i])));
    }
    section.ReadRange("TotalLo", "TotalHi", TotalLo, TotalHi);
    SetFlags(section.Read("BandSelect", ""), BandCount,
             [&](std::size_t i) -> bool& { return Bands[i].selected; });
    SetFlags(section.Read("MeasureSelect", ""), Meas::Count,
             [&](std::size_t i) -> bool& { return MeasSelected[i]; });
}

} // namespace SPECT
