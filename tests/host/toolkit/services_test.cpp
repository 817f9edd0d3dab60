// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/services.h"
#include "tests/support/temp_folder.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <unistd.h>

namespace {

using orvanta::test::TempFolder;
using owl::FileAccess;
using testing::ElementsAre;
using testing::IsEmpty;

const FileAccess& Files() {
    return *owl::CurrentServices().files;
}

TEST(SystemFiles, TellWhetherAFileMayBeUsed) {
    const TempFolder folder;
    const std::string file = folder.Write("a.smx", "x");
    EXPECT_EQ(Files().Access(file, FileAccess::kExists), 0);
    EXPECT_EQ(Files().Access(file, FileAccess::kReadable + FileAccess::kWritable), 0);
}

TEST(SystemFiles, TellWhyNotAndLeaveItInErrno) {
    const TempFolder folder;
    const std::string file = folder.Write("a.smx", "x");
    const std::pair<std::string, int> cases[] = {{folder.Path("missing.smx"), ENOENT},
                                                 {file + "/inside", ENOTDIR},
                                                 {folder.Path(std::string(300, 'x')), ENAMETOOLONG},
                                                 {"", ENOENT}};
    for (const auto& [path, error] : cases) {
        errno = 0;
        EXPECT_EQ(Files().Access(path, FileAccess::kExists), error) << path;
        EXPECT_EQ(errno, error) << path;
    }
}

TEST(SystemFiles, TellThatAProgramFileOfTheSystemIsNotWritable) {
    // Not even the administrator writes to what the kernel shows.
    EXPECT_EQ(Files().Access("/proc/version", FileAccess::kReadable), 0);
    EXPECT_NE(Files().Access("/proc/self/exe/x", FileAccess::kWritable), 0);
}

TEST(SystemFiles, KnowTheRunningProgram) {
    EXPECT_EQ(std::filesystem::path(Files().ProgramFile()).filename(), "toolkit_tests");
    EXPECT_TRUE(std::filesystem::is_regular_file(Files().ProgramFile()));
}

TEST(SystemFiles, MakeFoldersWithThoseAbove) {
    const TempFolder folder;
    const std::string deep = folder.Path("one/two/three");
    EXPECT_EQ(Files().MakeFolders(deep), 0);
    EXPECT_TRUE(std::filesystem::is_directory(deep));
    EXPECT_EQ(Files().MakeFolders(deep), 0) << "it is there already";
    EXPECT_EQ(Files().MakeFolders(folder.Write("file", "x") + "/inside"), ENOTDIR);
}

TEST(SystemFiles, RemoveAFileAndNothingElse) {
    const TempFolder folder;
    const std::string file = folder.Write("a.smx", "x");
    EXPECT_EQ(Files().Remove(file), 0);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(Files().Remove(file), ENOENT);
    std::filesystem::create_directory(folder.Path("folder"));
    EXPECT_NE(Files().Remove(folder.Path("folder")), 0);
    EXPECT_TRUE(std::filesystem::exists(folder.Path("folder")));
}

TEST(SystemFiles, ListFilesByEndingInOrder) {
    const TempFolder folder;
    for (const char* name : {"beta.smx", "Alpha.smx", "gamma.txt", ".smx", "Beta2.smx", "alpha.SMX", "smx"}) {
        folder.Write(name, "x");
    }
    std::filesystem::create_directory(folder.Path("folder.smx"));
    EXPECT_THAT(Files().FilesIn(folder.Path(""), ".smx"),
                ElementsAre(".smx", "Alpha.smx", "beta.smx", "Beta2.smx"));
    EXPECT_THAT(Files().FilesIn(folder.Path(""), ".wnd"), IsEmpty());
    EXPECT_THAT(Files().FilesIn(folder.Path("missing"), ".smx"), IsEmpty());
}

TEST(SystemProcesses, StartAProgramInItsFolder) {
    const TempFolder folder;
    const auto& processes = *owl::CurrentServices().processes;
    EXPECT_TRUE(processes.Launch("touch \"a name with blanks\" plain", folder.Path("")));
    EXPECT_TRUE(QTest::qWaitFor([&] {
        return std::filesystem::exists(folder.Path("a name with blanks")) &&
               std::filesystem::exists(folder.Path("plain"));
    }));
    EXPECT_FALSE(processes.Launch("/no/such/program", folder.Path("")));
    EXPECT_FALSE(processes.Launch("", folder.Path("")));
}

TEST(SystemProcesses, FindTheProgramFromTheCurrentFolder) {
    const TempFolder folder;
    const std::string script = folder.Write("tools/started.sh", "#!/bin/sh\ntouch here\n");
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    const std::filesystem::path earlier = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path(""));
    EXPECT_TRUE(owl::CurrentServices().processes->Launch("\"tools/started.sh\"", "tools/"));
    std::filesystem::current_path(earlier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder.Path("tools/here")); }));
}

TEST(SystemClipboard, TakesText) {
    owl::CurrentServices().clipboard->SetText("Fp1\t12.5 µV²\r\n");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Fp1\t12.5 µV²\r\n");
}

TEST(SystemClipboard, TakesPictures) {
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    owl::CurrentServices().clipboard->SetImage(image);
    EXPECT_EQ(QGuiApplication::clipboard()->image().convertToFormat(QImage::Format_RGB32), image);
}

TEST(SystemKeys, AreUpWhileNobodyHoldsThem) {
    const auto& keys = *owl::CurrentServices().keys;
    EXPECT_FALSE(keys.IsDown(owl::kVkShift));
    EXPECT_FALSE(keys.IsDown(owl::kVkControl));
    EXPECT_FALSE(keys.IsDown(owl::kVkAlt));
    EXPECT_FALSE(keys.IsDown(0x31));
}

TEST(SystemClock, GoesOn) {
    const auto& clock = *owl::CurrentServices().clock;
    const std::int64_t before = clock.Milliseconds();
    usleep(20'000);
    EXPECT_GE(clock.Milliseconds(), before + 15);
    EXPECT_LT(clock.Milliseconds(), before + 60'000);
}

TEST(Services, AreReplacedForAWhile) {
    const owl::Services& standard = owl::CurrentServices();
    owl::Services others = standard;
    EXPECT_EQ(owl::ReplaceServices(&others), nullptr);
    EXPECT_EQ(&owl::CurrentServices(), &others);
    EXPECT_EQ(owl::ReplaceServices(nullptr), &others);
    EXPECT_EQ(&owl::CurrentServices(), &standard);
}

} // namespace
