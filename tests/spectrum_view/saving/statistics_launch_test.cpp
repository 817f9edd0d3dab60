// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/statistics_launch.h"

#include "tests/support/qt/fake_global_window.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/kept_log.h"
#include "tests/support/temp_folder.h"

#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using testing::ElementsAre;
using testing::IsEmpty;
using Started = test::FakeProcesses::Started;

class StatisticsLaunch : public testing::Test {
protected:
    void Use(const std::string& path) { platform.texts["Spectrum/Tabulix"] = path; }
    void Launch() const { LaunchStatistics(platform, file); }

    test::TempFolder folder;
    test::FakePlatform platform;
    std::string program = folder.Write("pro gram/tabulix.sh", "");
    std::string file = folder.Write("spectra of M\u00fcller.xml", "<spectra/>");
};

TEST_F(StatisticsLaunch, StartsTheProgramInItsFolderOnTheFile) {
    const test::FakeServices services;
    Use(program);
    Launch();
    EXPECT_THAT(services.processes.Launched(),
                ElementsAre(Started{"\"" + program + "\" \"" + file + "\"", folder.Path("pro gram/")}));
}

TEST_F(StatisticsLaunch, LooksForTheProgramInItsUsualPlace) {
    const test::FakeServices services;
    Launch();
    EXPECT_EQ(platform.defaults["Spectrum/Tabulix"], R"(c:\quorvex\quorvex.exe)");
    EXPECT_FALSE(HasStatisticsProgram(platform));
    EXPECT_THAT(services.processes.Launched(), IsEmpty());
}

TEST_F(StatisticsLaunch, DoesNothingWithoutAFile) {
    const test::FakeServices services;
    Use(program);
    for (const std::string& missing :
         {std::string(), folder.Path("other.xml"), std::string("SPECTRADATA UNAVAILABLE ERROR")}) {
        LaunchStatistics(platform, missing);
    }
    EXPECT_THAT(services.processes.Launched(), IsEmpty());
}

TEST_F(StatisticsLaunch, DoesNothingWithAFileOrAProgramThatCannotBeRead) {
    test::FakeServices services;
    Use(program);
    services.files.Fail(file, EACCES);
    Launch();
    services.files.Fail(file, 0);
    services.files.Fail(program, EACCES);
    Launch();
    EXPECT_FALSE(HasStatisticsProgram(platform));
    EXPECT_THAT(services.processes.Launched(), IsEmpty());
}

TEST_F(StatisticsLaunch, StaysSilentWhenTheProgramDoesNotStart) {
    test::FakeServices services;
    services.processes.Succeed(false);
    Use(program);
    const test::KeptLog log;
    Launch();
    EXPECT_EQ(services.processes.Launched().size(), 1u);
    EXPECT_THAT(log.Lines(), ElementsAre(program + ": could not be started on " + file));
    EXPECT_THAT(platform.gui.Errors(), IsEmpty());
    EXPECT_THAT(platform.gui.Warnings(), IsEmpty());
}

TEST_F(StatisticsLaunch, DoesNotStartOnANameThatAQuoteWouldTear) {
    const test::FakeServices services;
    Use(program);
    LaunchStatistics(platform, folder.Write("a\" \"b.xml", ""));
    EXPECT_THAT(services.processes.Launched(), IsEmpty());
}

/// With the system's processes: a script that writes down its arguments, one per line, and where it runs.
class RealStatistics : public StatisticsLaunch {
protected:
    void UseScript(const std::string& name) {
        const std::string script = folder.Write(name, "#!/bin/sh\n"
                                                      "{ pwd; echo $#; printf '%s\\n' \"$@\"; } > ran.part\n"
                                                      "mv ran.part ran\n");
        std::filesystem::permissions(script, std::filesystem::perms::owner_all);
        Use(script);
    }
};

TEST_F(RealStatistics, GetExactlyThePathAsTheirOneArgument) {
    UseScript("Stati stik/t\u00e4bulix.sh");
    Launch();
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return std::filesystem::exists(folder.Path("Stati stik/ran")); }, 10000));
    const std::string place = std::filesystem::canonical(folder.Path("Stati stik"));
    EXPECT_EQ(folder.Read("Stati stik/ran"), place + "\n1\n" + file + "\n");
}

TEST_F(RealStatistics, GetThePathWithEverythingTheShellWouldUse) {
    UseScript("tabulix.sh");
    LaunchStatistics(platform, folder.Write("$HOME `x` \\ 'a' *.xml", ""));
    ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder.Path("ran")); }, 10000));
    const std::string place = std::filesystem::canonical(folder.Path(""));
    EXPECT_EQ(folder.Read("ran"), place + "\n1\n" + folder.Path("$HOME `x` \\ 'a' *.xml") + "\n");
}

TEST_F(RealStatistics, ThatAreNoProgramAreNotStarted) {
    Use(program); // not executable
    const test::KeptLog log;
    Launch();
    EXPECT_THAT(log.Lines(), ElementsAre(program + ": could not be started on " + file));
}

} // namespace
