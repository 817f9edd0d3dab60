// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/save_folder.h"

#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/kept_log.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

class SavingFolder : public testing::Test {
protected:
    void Set(const std::string& text) { platform.texts["Spectrum/SaveDir"] = text; }

    test::FakeServices services;
    test::TempFolder place;
    test::FakePlatform platform;
};

TEST_F(SavingFolder, IsEmptyWithoutTheSetting) {
    EXPECT_EQ(PrepareSaveFolder(platform), "");
    EXPECT_EQ(platform.defaults["Spectrum/SaveDir"], "");
}

TEST_F(SavingFolder, IsTheSameWithAndWithoutSeparatorAtTheEnd) {
    const std::string wanted = place.Path("spectra/");
    for (const char* end : {"", "\\", "/"}) {
        Set(place.Path("spectra") + end);
        EXPECT_EQ(PrepareSaveFolder(platform), wanted) << end;
    }
}

TEST_F(SavingFolder, UnderstandsBothSeparators) {
    Set("c:\\data\\spectra");
    EXPECT_EQ(SaveFolder(platform), "c:/data/spectra/");
    Set("/");
    EXPECT_EQ(SaveFolder(platform), "/");
}

TEST_F(SavingFolder, IsMadeWithTheFoldersAboveIt) {
    Set(place.Path("a/b/c"));
    PrepareSaveFolder(platform);
    EXPECT_TRUE(std::filesystem::is_directory(place.Path("a/b/c")));
}

TEST_F(SavingFolder, KeepsWhatItHolds) {
    place.Write("spectra/earlier.xml", "kept");
    Set(place.Path("spectra"));
    PrepareSaveFolder(platform);
    EXPECT_EQ(place.Read("spectra/earlier.xml"), "kept");
}

TEST_F(SavingFolder, ThatCannotBeMadeIsStillTheFolder) {
    Set(place.Path("spectra"));
    services.files.Fail(place.Path("spectra/"), EROFS);
    const test::KeptLog log;
    EXPECT_EQ(PrepareSaveFolder(platform), place.Path("spectra/"));
    EXPECT_EQ(log.Last(), place.Path("spectra/") + ": cannot be made: Read-only file system");
    EXPECT_FALSE(std::filesystem::exists(place.Path("spectra")));
}

TEST_F(SavingFolder, IsReadUpToIts259thCharacter) {
    const std::string name = place.Path("") + std::string(259 - place.Path("").size(), 'f');
    Set(name + "x");
    EXPECT_EQ(SaveFolder(platform), name + "/");
}

} // namespace
