// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/saving/comments_history.h"

#include "host/platform/host_platform.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/kept_log.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <QLockFile>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <barrier>
#include <cerrno>
#include <filesystem>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

const ProtocolHistory kNone;

CommentsHistory First(std::vector<std::string> names, std::string last) {
    return {ProtocolHistory{std::move(names), std::move(last)}, kNone, kNone};
}

TEST(CommentsHistoryXml, HoldsOneNameUsedOnce) {
    EXPECT_EQ(HistoryXml(First({}, "Sleep")), "<?xml version=\"1.0\"?>\n"
                                              "<DOC>\n"
                                              "\t<Protocol1 Last=\"Sleep\">\n"
                                              "\t\t<Item Label=\"Sleep\" />\n"
                                              "\t</Protocol1>\n"
                                              "\t<Protocol2 />\n"
                                              "\t<Protocol3 />\n"
                                              "</DOC>\n");
}

TEST(CommentsHistoryXml, HoldsEveryNameOnceInTheOrderOfTheBytes) {
    const CommentsHistory history{ProtocolHistory{{"awake", "EEG", "", "Über", "awake"}, "EEG"},
                                  ProtocolHistory{{"b", "a"}, ""}, ProtocolHistory{{}, "R&D <1> \"x\""}};
    EXPECT_EQ(HistoryXml(history), "<?xml version=\"1.0\"?>\n"
                                   "<DOC>\n"
                                   "\t<Protocol1 Last=\"EEG\">\n"
                                   "\t\t<Item Label=\"EEG\" />\n"
                                   "\t\t<Item Label=\"awake\" />\n"
                                   "\t\t<Item Label=\"Über\" />\n"
                                   "\t</Protocol1>\n"
                                   "\t<Protocol2>\n"
                                   "\t\t<Item Label=\"a\" />\n"
                                   "\t\t<Item Label=\"b\" />\n"
                                   "\t</Protocol2>\n"
                                   "\t<Protocol3 Last=\"R&amp;D &lt;1> &quot;x&quot;\">\n"
                                   "\t\t<Item Label=\"R&amp;D &lt;1> &quot;x&quot;\" />\n"
                                   "\t</Protocol3>\n"
                                   "</DOC>\n");
}

TEST(CommentsHistoryXml, ComesBackAsItWas) {
    const CommentsHistory history{ProtocolHistory{{"EEG", "awake"}, "awake"}, kNone,
                                  ProtocolHistory{{" <&\"'> ", "日本"}, "日本"}};
    EXPECT_EQ(ParseHistory(HistoryXml(history)), history);
}

TEST(CommentsHistoryXml, IsReadInItsOwnOrder) {
    const CommentsHistory read =
        ParseHistory("<DOC><Protocol1 Last='c'><Item Label='b'/><Item Label=''/><Item Label='a'/>"
                     "<Item Label='b'/></Protocol1></DOC>");
    EXPECT_EQ(read, First({"b", "", "a", "b"}, "c"));
}

TEST(CommentsHistoryXml, GivesNothingForWhatIsMissing) {
    EXPECT_THAT(ParseHistory(""), Each(kNone));
    EXPECT_THAT(ParseHistory("<OTHER><Protocol1 Last='x'/></OTHER>"), Each(kNone));
    EXPECT_EQ(ParseHistory("<DOC><Protocol1><Item/><Item Name='x'/><Other Label='y'/></Protocol1></DOC>"),
              First({}, ""));
}

TEST(CommentsHistoryXml, IsReadAsFarAsItIsWhole) {
    EXPECT_EQ(ParseHistory("<DOC><Protocol1 Last='a'><Item Label='a'/><It"), First({"a"}, "a"));
    EXPECT_THAT(ParseHistory(std::string("\x00\xFF\x01", 3)), Each(kNone));
}

TEST(CommentsHistoryMerge, KeepsWhatOthersAddedSinceItWasRead) {
    const CommentsHistory merged = WithNamesOfOthers(First({"A", "B"}, "Mine"), First({"A", "B"}, "A"),
                                                     First({"A", "B", "Theirs"}, "Theirs"));
    EXPECT_EQ(merged, First({"A", "B", "Theirs"}, "Mine"));
}

TEST(CommentsHistoryMerge, AddsNothingWhenNobodyElseSaved) {
    const CommentsHistory shown = First({"A"}, "");
    EXPECT_EQ(WithNamesOfOthers(shown, First({"A", "Gone"}, "A"), First({"A", "Gone"}, "A")), shown);
}

class CommentsHistoryOnDisk : public testing::Test {
protected:
    void Save(const std::string& name) const { SaveHistory(file, First({}, name), {}); }
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path(""))) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

    test::TempFolder folder;
    std::string file = folder.Path("spectra.xml");
};

TEST_F(CommentsHistoryOnDisk, LiesBesideTheProgram) {
    test::FakeServices services;
    services.files.RunFrom("/opt/or vanta.d/orvanta.bin");
    const std::string beside = "/opt/or vanta.d/spectra.xml";
    EXPECT_EQ(CommentsHistoryFiles(nullptr), (HistoryFiles{beside, beside}));
}

class CommentsHistoryOfAnInstallation : public CommentsHistoryOnDisk {
protected:
    CommentsHistoryOfAnInstallation() {
        services.files.RunFrom(folder.Write("bin/orvanta", ""));
        folder.Write("bin/spectra.xml", HistoryXml(First({"Installed"}, "")));
    }
    void MakeReadOnly() { services.files.Fail(folder.Path("bin"), EACCES); }

    test::FakeServices services;
    test::RecordingGui gui;
    platform::HostPlatform platform{gui, folder.Path("settings.ini"), folder.Path("data")};
    std::string installed = folder.Path("bin/spectra.xml");
    std::string own = folder.Path("data") + "/PROTOCOLS/spectra.xml";
};

TEST_F(CommentsHistoryOfAnInstallation, StaysBesideAProgramWhoseFolderCanBeWritten) {
    EXPECT_EQ(CommentsHistoryFiles(&platform), (HistoryFiles{installed, installed}));
    EXPECT_FALSE(std::filesystem::exists(folder.Path("data/PROTOCOLS")));
}

TEST_F(CommentsHistoryOfAnInstallation, IsReadThereAndSavedForTheUserWhereItsFolderCannotBeWritten) {
    MakeReadOnly();
    EXPECT_EQ(CommentsHistoryFiles(&platform), (HistoryFiles{installed, own}));
}

TEST_F(CommentsHistoryOfAnInstallation, IsTheUsersOnceItWasSaved) {
    MakeReadOnly();
    const CommentsHistory loaded = LoadHistory(CommentsHistoryFiles(&platform).read);
    SaveHistory(CommentsHistoryFiles(&platform).saved, First(loaded[0].names, "Mine"), loaded);
    EXPECT_EQ(CommentsHistoryFiles(&platform), (HistoryFiles{own, own}));
    EXPECT_EQ(LoadHistory(own), First({"Installed", "Mine"}, "Mine"));
    EXPECT_EQ(LoadHistory(installed), First({"Installed"}, ""));
}

TEST_F(CommentsHistoryOnDisk, IsEmptyWithoutItsFile) {
    EXPECT_THAT(LoadHistory(file), Each(kNone));
}

TEST_F(CommentsHistoryOnDisk, IsEmptyWhereAFolderHasItsName) {
    EXPECT_THAT(LoadHistory(folder.Path("")), Each(kNone));
}

TEST_F(CommentsHistoryOnDisk, IsWrittenAsItsXmlAndNothingElseIsLeft) {
    const CommentsHistory history = First({"Awake"}, "Sleep");
    SaveHistory(file, history, {});
    EXPECT_EQ(folder.Read("spectra.xml"), HistoryXml(history));
    EXPECT_EQ(LoadHistory(file), First({"Awake", "Sleep"}, "Sleep"));
    EXPECT_THAT(Files(), ElementsAre("spectra.xml"));
}

TEST_F(CommentsHistoryOnDisk, ReplacesADamagedFile) {
    folder.Write("spectra.xml", "no XML");
    Save("Sleep");
    EXPECT_EQ(LoadHistory(file), First({"Sleep"}, "Sleep"));
}

TEST_F(CommentsHistoryOnDisk, LosesNoNameOfProgramsThatSaveOneAfterTheOther) {
    Save("Mine");
    Save("Theirs"); // which has not seen the first
    EXPECT_EQ(LoadHistory(file), First({"Mine", "Theirs"}, "Theirs"));
}

TEST_F(CommentsHistoryOnDisk, LosesNoNameOfProgramsThatSaveAtOnce) {
    constexpr int kPrograms = 4;
    constexpr int kSaves = 5;
    std::barrier start(kPrograms);
    std::vector<std::thread> programs;
    for (int program = 0; program < kPrograms; ++program) {
        programs.emplace_back([&, program] {
            start.arrive_and_wait();
            for (int save = 0; save < kSaves; ++save) {
                Save(std::to_string(program) + "-" + std::to_string(save));
            }
        });
    }
    for (std::thread& program : programs) {
        program.join();
    }
    std::vector<std::string> wanted;
    for (int program = 0; program < kPrograms; ++program) {
        for (int save = 0; save < kSaves; ++save) {
            wanted.push_back(std::to_string(program) + "-" + std::to_string(save));
        }
    }
    EXPECT_EQ(LoadHistory(file)[0].names, wanted);
}

TEST_F(CommentsHistoryOnDisk, IsLeftAloneWhileAnotherHoldsIt) {
    Save("Mine");
    QLockFile other(QString::fromStdString(file + ".lock"));
    ASSERT_TRUE(other.tryLock());
    const test::KeptLog log;
    SaveHistory(file, First({}, "Late"), {}, std::chrono::milliseconds(50));
    EXPECT_EQ(LoadHistory(file), First({"Mine"}, "Mine"));
    EXPECT_EQ(log.Last(), file + ": the protocol names are not saved: the file cannot be locked");
}

TEST_F(CommentsHistoryOnDisk, IsNotHeldByAProgramThatDied) {
    const pid_t other = ::fork();
    if (other == 0) {
        ::_exit(QLockFile(QString::fromStdString(file + ".lock")).tryLock() ? 0 : 1); // never unlocked
    }
    int status = 0;
    ASSERT_EQ(::waitpid(other, &status, 0), other);
    ASSERT_EQ(status, 0);
    Save("Mine");
    EXPECT_EQ(LoadHistory(file), First({"Mine"}, "Mine"));
}

TEST_F(CommentsHistoryOnDisk, IsLostWhereNothingCanBeWritten) {
    std::filesystem::create_directory(file); // a folder of that name
    const test::KeptLog log;
    for (const std::string& place :
         {folder.Path("missing/spectra.xml"), std::string("/proc/spectra.xml"), file}) {
        SaveHistory(place, First({}, "Sleep"), {});
        EXPECT_THAT(log.Last(), testing::StartsWith(place + ": the protocol names are not saved: "));
    }
    EXPECT_THAT(log.Lines(), testing::SizeIs(3));
    EXPECT_TRUE(std::filesystem::is_directory(file));
    EXPECT_THAT(Files(), ElementsAre("spectra.xml"));
}

TEST_F(CommentsHistoryOnDisk, GrowsWithoutLimit) {
    std::vector<std::string> names;
    for (int i = 10000; i < 12000; ++i) {
        names.push_back("Protocol " + std::to_string(i));
    }
    SaveHistory(file, First(names, ""), {});
    EXPECT_EQ(LoadHistory(file), First(names, ""));
}

} // namespace
