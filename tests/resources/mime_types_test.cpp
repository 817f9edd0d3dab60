// SPDX-License-Identifier: GPL-3.0-or-later
// By what a desktop knows recordings.
#include "tests/support/brainvision_files.h"
#include "tests/support/edf_file.h"
#include "tests/support/temp_folder.h"

#include <QMimeDatabase>
#include <QProcess>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace orvanta::test {

namespace {

/// What desktops say of bitmap fonts.
constexpr const char* kSystemTypes = R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="application/x-font-bdf">
    <comment>BDF font</comment>
    <magic><match type="string" value="STARTFONT " offset="0"/></magic>
    <glob pattern="*.bdf"/>
  </mime-type>
  <mime-type type="text/plain"><comment>plain text</comment><glob pattern="*.txt"/></mime-type>
</mime-info>
)";

class MimeTypes : public testing::Test {
protected:
    /// Recordings among other kinds of files, as after installing; Qt reads them once.
    static void SetUpTestSuite() {
        folder = std::make_unique<TempFolder>();
        const std::string packages = folder->Path("share/mime/packages");
        std::filesystem::create_directories(packages);
        std::ofstream(packages + "/system.xml") << kSystemTypes;
        std::filesystem::copy(std::string(ORVANTA_RESOURCES) + "/desktop/orvanta.mime.xml",
                              packages + "/orvanta.xml");
        const QString share = QString::fromStdString(folder->Path("share"));
        ASSERT_EQ(QProcess::execute("update-mime-database", {share + "/mime"}), 0);
        qputenv("XDG_DATA_HOME", share.toUtf8() + "/none");
        qputenv("XDG_DATA_DIRS", share.toUtf8());
    }
    static void TearDownTestSuite() { folder.reset(); }

    static std::string TypeOf(const std::string& name, const std::string& content) {
        const std::string path = folder->Path(name);
        std::ofstream(path, std::ios::binary) << content;
        const QMimeType type = QMimeDatabase().mimeTypeForFile(QString::fromStdString(path));
        return type.name().toStdString();
    }

    static std::unique_ptr<TempFolder> folder;
};

std::unique_ptr<TempFolder> MimeTypes::folder;

TEST_F(MimeTypes, KnowRecordingsByTheirNames) {
    EXPECT_EQ(TypeOf("night.edf", PlainEdf().Bytes()), "application/x-edf");
    EXPECT_EQ(TypeOf("night.bdf", PlainBdf().Bytes()), "application/x-bdf-eeg");
    EXPECT_EQ(TypeOf("night.vhdr", HeaderText({})), "application/x-brainvision-header");
}

TEST_F(MimeTypes, KnowRecordingsByTheirFirstBytes) {
    EXPECT_EQ(TypeOf("a-recording", PlainEdf().Bytes()), "application/x-edf");
    EXPECT_EQ(TypeOf("a-long-recording", PlainBdf().Bytes()), "application/x-bdf-eeg");
    EXPECT_EQ(TypeOf("a-header", HeaderText({})), "application/x-brainvision-header");
}

TEST_F(MimeTypes, TellABitmapFontFromARecordingOfTheSameEnding) {
    const std::string font =
        "STARTFONT 2.1\nFONT fixed\nSIZE 8 75 75\nFONTBOUNDINGBOX 8 8 0 0\nCHARS 0\nENDFONT\n";

    EXPECT_EQ(TypeOf("fixed.bdf", font), "application/x-font-bdf");
}

TEST_F(MimeTypes, TakeNoTextThatBeginsWithAZeroForARecording) {
    EXPECT_EQ(TypeOf("numbers", "0       1       2\n" + std::string(300, '7')), "text/plain");
}

} // namespace

} // namespace orvanta::test
