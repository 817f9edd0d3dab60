// SPDX-License-Identifier: GPL-3.0-or-later
#include "side_bar/measure_names.h"

#include "host/toolkit/message_module.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/support/temp_folder.h"

#include <QLocale>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace orvanta;
using testing::ElementsAre;

std::vector<std::string> Measures(const SpectraMgr& manager) {
    std::vector<std::string> names;
    for (unsigned i = 0; i < SPECT::Meas::Count; ++i) {
        names.push_back(side_bar::MeasureName(manager, i));
    }
    return names;
}

std::vector<std::string> Entities(const SpectraMgr& manager) {
    std::vector<std::string> names;
    for (unsigned i = 0; i < SPECT::Entity::Count; ++i) {
        names.push_back(side_bar::EntityName(manager, static_cast<SPECT::Entity::Type>(i)));
    }
    return names;
}

TEST(MeasureNames, AreThoseOfFilesInEnglish) {
    const SpectraMgr manager(nullptr, nullptr);
    EXPECT_THAT(Measures(manager),
                ElementsAre("Abs", "Mean", "Rel", "Peak F", "Mean F", "Peak", "SEF95", "CV"));
    EXPECT_THAT(Entities(manager), ElementsAre("Amplitude", "Power", "Coherence", "Phase"));
}

TEST(MeasureNames, AreInTheUsersLanguageWhereItHasThem) {
    QLocale::setDefault(QLocale("de_DE"));
    const test::TempFolder folder;
    folder.Write("messages/Orvanta.de.ini", "[NAMES]\nmean=Mittel\npeakF=Gipfel-F\ncoherence=Kohärenz\n");
    const PModule texts("Orvanta", nullptr, folder.Path("messages"));
    const SpectraMgr manager(nullptr, nullptr);
    EXPECT_THAT(Measures(manager),
                ElementsAre("Abs", "Mittel", "Rel", "Gipfel-F", "Mean F", "Peak", "SEF95", "CV"));
    EXPECT_THAT(Entities(manager), ElementsAre("Amplitude", "Power", "Kohärenz", "Phase"));
    EXPECT_EQ(manager.GetBandMeasName(1), "Mean") << "of files";
    QLocale::setDefault(QLocale::system());
}

} // namespace
