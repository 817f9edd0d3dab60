// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/settings_store.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <ostream>
#include <stdexcept>

namespace {

using orvanta::platform::SettingsStore;
using orvanta::test::TempFolder;
using testing::HasSubstr;

TEST(SettingsStore, IsEmptyWithoutAFile) {
    const TempFolder folder;
    const SettingsStore store(folder.Path("settings.ini"));
    EXPECT_EQ(store.Get("Spectrum", "SaveDir"), std::nullopt);
    EXPECT_EQ(store.GetLoadError(), "");
    EXPECT_FALSE(store.IsChanged());
}

TEST(SettingsStore, MakesNoFileWithoutChanges) {
    const TempFolder folder;
    SettingsStore store(folder.Path("settings.ini"));
    store.Save();
    EXPECT_FALSE(std::filesystem::exists(folder.Path("settings.ini")));
}

TEST(SettingsStore, WritesSectionsKeysAndValues) {
    const TempFolder folder;
    SettingsStore store(folder.Path("deep/er/settings.ini"));
    store.Put("Spectrum", "SaveDir", "/data/out");
    EXPECT_TRUE(store.IsChanged());
    store.Save();
    EXPECT_FALSE(store.IsChanged());
    EXPECT_EQ(folder.Read("deep/er/settings.ini"), "[Spectrum]\nSaveDir = /data/out\n");
}

class SettingsValue : public testing::TestWithParam<std::string> {};

TEST_P(SettingsValue, ComesBackAsItWas) {
    const TempFolder folder;
    SettingsStore store(folder.Path("settings.ini"));
    store.Put("Spectrum", "before", "1");
    store.Put("Spectrum", "value", GetParam());
    store.Put("Spectrum", "zzz", "2");
    EXPECT_EQ(store.Get("Spectrum", "value"), GetParam());
    store.Save();
    const SettingsStore again(folder.Path("settings.ini"));
    EXPECT_EQ(again.Get("Spectrum", "value"), GetParam());
    EXPECT_EQ(again.Get("Spectrum", "before"), "1");
    EXPECT_EQ(again.Get("Spectrum", "zzz"), "2");
}

INSTANTIATE_TEST_SUITE_P(Values, SettingsValue,
                         testing::Values("", "plain", "two words", " blanks around ", "\ttab", "\"quoted\"",
                                         "\"", "\"\"", "a=b", "; no comment", "[no section]",
                                         "c:\\quorvex\\quorvex.exe", "<<<END", "50 %", "Größe µV²",
                                         "ends with \\"));

struct Unstorable {
    const char* section;
    const char* key;
    const char* value;
};

void PrintTo(const Unstorable& setting, std::ostream* out) {
    *out << testing::PrintToString(std::string(setting.section)) << ' '
         << testing::PrintToString(std::string(setting.key)) << ' '
         << testing::PrintToString(std::string(setting.value));
}

class UnstorableSetting : public testing::TestWithParam<Unstorable> {};

TEST_P(UnstorableSetting, IsRefusedAndChangesNothing) {
    const TempFolder folder;
    SettingsStore store(folder.Path("settings.ini"));
    EXPECT_THROW(store.Put(GetParam().section, GetParam().key, GetParam().value), std::invalid_argument);
    EXPECT_FALSE(store.IsChanged());
}

INSTANTIATE_TEST_SUITE_P(Texts, UnstorableSetting,
                         testing::Values(Unstorable{"", "key", "v"}, Unstorable{"a]b", "key", "v"},
                                         Unstorable{" a", "key", "v"}, Unstorable{"a\nb", "key", "v"},
                                         Unstorable{"a", "", "v"}, Unstorable{"a", "k=l", "v"},
                                         Unstorable{"a", "[k", "v"}, Unstorable{"a", ";k", "v"},
                                         Unstorable{"a", "#k", "v"}, Unstorable{"a", "k ", "v"},
                                         Unstorable{"a", "k", "two\nlines"},
                                         Unstorable{"a", "k", "two\rlines"}, Unstorable{"a", "k", "\x01"}));

TEST(SettingsStore, TellsNamesApartWithoutRegardToCase) {
    const TempFolder folder;
    SettingsStore store(folder.Write("settings.ini", "[SPECTRUM]\nsavedir=/a\n"));
    EXPECT_EQ(store.Get("Spectrum", "SaveDir"), "/a");
    store.Put("Spectrum", "SaveDir", "/b");
    store.Save();
    EXPECT_EQ(folder.Read("settings.ini"), "[SPECTRUM]\nsavedir = /b\n");
}

TEST(SettingsStore, PassesOverLinesThatMakeNoSense) {
    const TempFolder folder;
    const SettingsStore store(
        folder.Write("settings.ini", "garbage\n[open\n=value\n[Spectrum]\nnonsense\nSaveDir=/a\n\xff\xfe\n"));
    EXPECT_EQ(store.GetLoadError(), "");
    EXPECT_EQ(store.Get("Spectrum", "SaveDir"), "/a");
}

TEST(SettingsStore, ReadsFilesOfOtherSystems) {
    const TempFolder folder;
    const SettingsStore store(folder.Write("settings.ini", "\xEF\xBB\xBF[Spectrum]\r\nSaveDir=/a\r\n"));
    EXPECT_EQ(store.Get("Spectrum", "SaveDir"), "/a");
}

TEST(SettingsStore, KeepsComments) {
    const TempFolder folder;
    SettingsStore store(
        folder.Write("settings.ini", "; mine\n\n; views\n[Spectrum]\n; folder\nSaveDir=/a\n"));
    store.Put("Spectrum", "SaveDir", "/b");
    store.Save();
    EXPECT_EQ(folder.Read("settings.ini"), "; mine\n\n\n; views\n[Spectrum]\n\n; folder\nSaveDir = /b\n");
}

TEST(SettingsStore, KeepsWhatAnotherProgramSavedMeanwhile) {
    const TempFolder folder;
    SettingsStore mine(folder.Path("settings.ini"));
    SettingsStore other(folder.Path("settings.ini"));
    mine.Put("Spectrum", "Mode", "1");
    other.Put("Spectrum", "SaveDir", "/a");
    other.Save();
    mine.Save();
    EXPECT_EQ(folder.Read("settings.ini"), "[Spectrum]\nSaveDir = /a\nMode = 1\n");
}

TEST(SettingsStore, AnEqualValueIsNoChange) {
    const TempFolder folder;
    SettingsStore store(folder.Write("settings.ini", "[Spectrum]\nMode=1\n"));
    store.Put("Spectrum", "Mode", "1");
    EXPECT_FALSE(store.IsChanged());
}

TEST(SettingsStore, KeepsChangesThatCannotBeSaved) {
    const TempFolder folder;
    folder.Write("file", "no folder");
    SettingsStore store(folder.Path("file/settings.ini"));
    store.Put("Spectrum", "Mode", "1");
    try {
        store.Save();
        FAIL() << "a file was taken for a folder";
    } catch (const std::runtime_error& error) {
        EXPECT_THAT(error.what(), HasSubstr(folder.Path("file/settings.ini")));
        EXPECT_THAT(error.what(), HasSubstr("Not a directory"));
    }
    EXPECT_TRUE(store.IsChanged());
    EXPECT_EQ(store.Get("Spectrum", "Mode"), "1");
    EXPECT_EQ(folder.Read("file"), "no folder");
}

TEST(SettingsStore, ReplacesNothingThatItCouldNotRead) {
    const TempFolder folder;
    folder.Write("settings.ini/inside", "kept");
    SettingsStore store(folder.Path("settings.ini"));
    EXPECT_THAT(store.GetLoadError(), HasSubstr("not a regular file"));
    store.Put("Spectrum", "Mode", "1");
    EXPECT_THROW(store.Save(), std::runtime_error);
    EXPECT_EQ(folder.Read("settings.ini/inside"), "kept");
}

TEST(SettingsStore, RefusesAFileOfAbsurdSize) {
    const TempFolder folder;
    const std::string path = folder.Write("settings.ini", "[Spectrum]\nMode=1\n");
    std::filesystem::resize_file(path, std::uintmax_t{1} << 40U);
    const SettingsStore store(path);
    EXPECT_THAT(store.GetLoadError(), HasSubstr("too large"));
}

TEST(SettingsStore, LivesInMemoryWithoutAPath) {
    SettingsStore store("");
    EXPECT_EQ(store.GetLoadError(), "");
    store.Put("Spectrum", "Mode", "1");
    store.Save();
    EXPECT_EQ(store.Get("Spectrum", "Mode"), "1");
}

} // namespace
