// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/platform/host_platform.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <limits>
#include <optional>

namespace {

using orvanta::platform::HostPlatform;
using orvanta::test::RecordingGui;
using orvanta::test::TempFolder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class HostPlatformTest : public testing::Test {
protected:
    TempFolder folder_;
    RecordingGui gui_;
    std::optional<HostPlatform> platform_{std::in_place, gui_, folder_.Path("settings.ini"),
                                          folder_.Path("data")};

    std::string Text(double value, int size, int decimals) const {
        std::array<char, 128> buffer{};
        buffer.fill('?');
        platform_->FloatToStrLoc(buffer.data(), size, value, decimals);
        EXPECT_EQ(buffer[static_cast<std::size_t>(size)], '?') << "written beyond the buffer";
        return buffer.data();
    }
};

TEST_F(HostPlatformTest, WritesNumbersWithTheAskedDecimals) {
    EXPECT_EQ(Text(12.346, 100, 2), "12.35");
    EXPECT_EQ(Text(-0.25, 100, 3), "-0.250");
    EXPECT_EQ(Text(7, 100, 0), "7");
    EXPECT_EQ(Text(7, 100, -4), "7");
}

TEST_F(HostPlatformTest, WritesNumbersWithTheUsersDecimalSign) {
    const orvanta::test::CommaNumerals numerals;
    EXPECT_EQ(Text(12.346, 100, 2), "12,35");
}

TEST_F(HostPlatformTest, SaysThatANumberIsNotAvailable) {
    EXPECT_EQ(Text(std::numeric_limits<double>::quiet_NaN(), 100, 2), "n/a");
    EXPECT_EQ(Text(-std::numeric_limits<double>::infinity(), 100, 2), "n/a");
    EXPECT_EQ(Text(std::numeric_limits<double>::infinity(), 3, 2), "n/");
}

TEST_F(HostPlatformTest, CutsNumbersToTheBuffer) {
    EXPECT_EQ(Text(123456.789, 5, 2), "1234");
    EXPECT_EQ(Text(123456.789, 1, 2), "");
    EXPECT_EQ(Text(1e308, 20, 2), "1000000000000000010");
    EXPECT_EQ(Text(0.5, 6, std::numeric_limits<int>::max()), "0.500");
}

TEST_F(HostPlatformTest, WritesNoNumberWithoutABuffer) {
    char guard = '?';
    platform_->FloatToStrLoc(&guard, 0, 1, 2);
    platform_->FloatToStrLoc(&guard, -1, 1, 2);
    platform_->FloatToStrLoc(nullptr, 10, 1, 2);
    EXPECT_EQ(guard, '?');
}

TEST_F(HostPlatformTest, ReadsTheDefaultOfATextThatIsNotSet) {
    std::array<char, 260> buffer{};
    platform_->ReadString("Spectrum", "Tabulix", "c:\\quorvex\\quorvex.exe", buffer.data(), 259);
    EXPECT_STREQ(buffer.data(), "c:\\quorvex\\quorvex.exe");
    platform_->ReadString("Spectrum", "Tabulix", nullptr, buffer.data(), 259);
    EXPECT_STREQ(buffer.data(), "");
}

TEST_F(HostPlatformTest, ReadsATextOfTheLongestLengthWhole) {
    std::array<char, 261> buffer{};
    buffer.fill('?');
    platform_->WriteString("Spectrum", "SaveDir", std::string(259, 'x').c_str());
    platform_->ReadString("Spectrum", "SaveDir", "", buffer.data(), 259);
    EXPECT_EQ(std::string(buffer.data()), std::string(259, 'x'));
    EXPECT_EQ(buffer[260], '?');
}

TEST_F(HostPlatformTest, CutsATextThatIsTooLong) {
    std::array<char, 261> buffer{};
    buffer.fill('?');
    platform_->WriteString("Spectrum", "SaveDir", std::string(1000, 'x').c_str());
    platform_->ReadString("Spectrum", "SaveDir", "", buffer.data(), 259);
    EXPECT_EQ(std::string(buffer.data()), std::string(259, 'x'));
    EXPECT_EQ(buffer[260], '?');
    platform_->ReadString("Spectrum", "SaveDir", "", buffer.data(), 0);
    EXPECT_STREQ(buffer.data(), "");
}

TEST_F(HostPlatformTest, CutsATextBetweenCharacters) {
    std::array<char, 16> buffer{};
    platform_->WriteString("Spectrum", "SaveDir", "aµb");
    platform_->ReadString("Spectrum", "SaveDir", "", buffer.data(), 2);
    EXPECT_STREQ(buffer.data(), "a");
    platform_->ReadString("Spectrum", "SaveDir", "", buffer.data(), 3);
    EXPECT_STREQ(buffer.data(), "aµ");
}

TEST_F(HostPlatformTest, RefusesATextWithLineBreaksWithAMessage) {
    std::array<char, 16> buffer{};
    platform_->WriteString("Spectrum", "SaveDir", "/a\n/b");
    EXPECT_THAT(gui_.Errors(), ElementsAre(HasSubstr("[Spectrum] SaveDir")));
    platform_->ReadString("Spectrum", "SaveDir", "old", buffer.data(), 15);
    EXPECT_STREQ(buffer.data(), "old");
}

TEST_F(HostPlatformTest, SavesSettingsWhenItEnds) {
    platform_->GetUser()->PutInt("Spectrum", "Mode", 3);
    platform_->WriteString("Spectrum", "SaveDir", "/a");
    platform_.reset();
    EXPECT_EQ(folder_.Read("settings.ini"), "[Spectrum]\nMode = 3\nSaveDir = /a\n");
    EXPECT_THAT(gui_.Errors(), IsEmpty());
}

TEST_F(HostPlatformTest, KeepsSettingsInMemoryWhenTheyCannotBeSaved) {
    folder_.Write("file", "no folder");
    HostPlatform platform(gui_, folder_.Path("file/settings.ini"), folder_.Path("data"));
    platform.GetUser()->PutInt("Spectrum", "Mode", 3);
    EXPECT_FALSE(platform.SaveSettings());
    EXPECT_THAT(gui_.Errors(), ElementsAre(HasSubstr("Not a directory")));
    EXPECT_EQ(platform.GetUser()->GetInt("Spectrum", "Mode", 1), 3);
}

TEST_F(HostPlatformTest, SaysWhenSettingsCannotBeRead) {
    folder_.Write("odd.ini/inside", "");
    const HostPlatform platform(gui_, folder_.Path("odd.ini"), folder_.Path("data"));
    EXPECT_THAT(gui_.Warnings(), ElementsAre(HasSubstr("not a regular file")));
}

TEST_F(HostPlatformTest, MakesApplicationFolders) {
    EXPECT_EQ(platform_->GetAppFolder("MACRO"), folder_.Path("data") + "/MACRO/");
    EXPECT_TRUE(std::filesystem::is_directory(folder_.Path("data/MACRO")));
    EXPECT_EQ(platform_->GetAppFolder("MACRO"), folder_.Path("data") + "/MACRO/");
}

TEST_F(HostPlatformTest, ShowsProgressThroughItsGui) {
    const std::unique_ptr<GenericProgress> progress(
        platform_->CreateProgress("Computing Spectra...", MSWindow(nullptr)));
    EXPECT_THAT(gui_.Progresses(), ElementsAre("Computing Spectra..."));
}

TEST(UserFolders, FollowTheEnvironment) {
    setenv("XDG_CONFIG_HOME", "/cfg", 1);
    setenv("XDG_DATA_HOME", "/dat", 1);
    EXPECT_EQ(orvanta::platform::DefaultSettingsFile(), "/cfg/orvanta/settings.ini");
    EXPECT_EQ(orvanta::platform::DefaultDataFolder(), "/dat/orvanta/");
}

TEST(UserFolders, LieInTheHomeFolderOtherwise) {
    setenv("HOME", "/home/ada", 1);
    unsetenv("XDG_CONFIG_HOME");
    setenv("XDG_DATA_HOME", "relative", 1);
    EXPECT_EQ(orvanta::platform::DefaultSettingsFile(), "/home/ada/.config/orvanta/settings.ini");
    EXPECT_EQ(orvanta::platform::DefaultDataFolder(), "/home/ada/.local/share/orvanta/");
}

} // namespace
