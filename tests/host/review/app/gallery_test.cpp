// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gallery/gallery.h"

#include "host/review/app/gallery/host_pages.h"
#include "host/review/app/gallery/picture.h"
#include "host/review/app/gallery/sample.h"
#include "host/review/app/module_library.h"
#include "host/review/cli/exit_status.h"
#include "tests/support/temp_folder.h"

#include <QDialog>
#include <QFileInfo>
#include <QImage>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include <sys/stat.h>

namespace {

using namespace orvanta::review;
using testing::ElementsAre;
using testing::SizeIs;

GalleryPage PageOf(const std::string& name, const QSize& size) {
    return {name, [size](const TakePicture& take) {
                QWidget window;
                window.resize(size);
                take(window);
            }};
}

std::vector<std::string> NamesOf(const std::vector<GalleryPage>& pages) {
    std::vector<std::string> names;
    for (const GalleryPage& page : pages) {
        names.push_back(page.name);
    }
    return names;
}

/// Everything that the gallery shows.
class AllPages : public testing::Test {
protected:
    AllPages() {
        for (GalleryPage& page : MakeHostPages(sample_.Get())) {
            pages_.push_back(std::move(page));
        }
    }

    DemoSample sample_;
    ModuleLibrary module_{LibraryFolder()};
    std::vector<GalleryPage> pages_ = module_.Bridge().MakeGalleryPages(sample_.Get());
};

TEST(PictureName, HoldsPageStyleAndScale) {
    EXPECT_EQ(PictureName("input", Style::Light, 1), "input-light-1x.png");
    EXPECT_EQ(PictureName("input", Style::Dark, 1.5), "input-dark-1.5x.png");
    EXPECT_EQ(PictureName("a-b", Style::Light, 2), "a-b-light-2x.png");
}

TEST(ChoosePages, TakesAllWithoutNames) {
    EXPECT_THAT(ChoosePages({PageOf("a", {}), PageOf("b", {})}, {}), SizeIs(2));
}

TEST(ChoosePages, TakesTheNamedOnes) {
    EXPECT_THAT(NamesOf(ChoosePages({PageOf("a", {}), PageOf("b", {}), PageOf("c", {})}, {"c", "a"})),
                ElementsAre("c", "a"));
}

TEST(ChoosePages, RefusesAnUnknownNameAndTellsThoseThereAre) {
    try {
        ChoosePages({PageOf("a", {}), PageOf("b", {})}, {"x"});
        FAIL() << "not refused";
    } catch (const orvanta::cli::UsageError& error) {
        EXPECT_STREQ(error.what(), "--only x: no such window (there are a, b)");
    }
}

TEST(TakePictures, WritesOneFileForEachPageInItsSize) {
    const orvanta::test::TempFolder folder;
    const auto files =
        TakePictures({PageOf("a", {40, 30}), PageOf("b", {50, 20})}, folder.Path(""), Style::Light, 1);
    EXPECT_THAT(files, ElementsAre(folder.Path("a-light-1x.png"), folder.Path("b-light-1x.png")));
    EXPECT_EQ(QImage(folder.Path("a-light-1x.png").c_str()).size(), QSize(40, 30));
    EXPECT_EQ(QImage(folder.Path("b-light-1x.png").c_str()).size(), QSize(50, 20));
}

TEST(SavePicture, SaysWhereItCannotWrite) {
    const orvanta::test::TempFolder folder;
    QWidget window;
    EXPECT_THROW(SavePicture(window, folder.Path("no/such/folder.png")), std::runtime_error);
}

TEST(SavePicture, LeavesWhatIsNoFileAlone) {
    const orvanta::test::TempFolder folder;
    const std::string pipe = folder.Path("pipe.png");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    QWidget window;
    EXPECT_THROW(SavePicture(window, pipe), std::runtime_error);
}

TEST(LookAtModal, SeesTheWindowAndClosesIt) {
    bool seen = false;
    LookAtModal(
        [] {
            QDialog dialog;
            dialog.exec();
        },
        [&seen](QWidget& window) { seen = window.isVisible(); });
    EXPECT_TRUE(seen);
}

TEST(LookAtModal, PassesOnAFailureOfTheLook) {
    EXPECT_THROW(LookAtModal(
                     [] {
                         QDialog dialog;
                         dialog.exec();
                     },
                     [](QWidget&) { throw std::runtime_error("disk full"); }),
                 std::runtime_error);
}

TEST_F(AllPages, GivePicturesThatDifferAndFitASmallScreen) {
    const orvanta::test::TempFolder folder;
    const QSize roomOnTheSmallestScreen(1366, 768 - 60);
    std::set<std::string> contents;
    for (const std::string& file : TakePictures(pages_, folder.Path(""), Style::Light, 1)) {
        const QSize size = QImage(file.c_str()).size();
        EXPECT_EQ(size.boundedTo(roomOnTheSmallestScreen), size) << file;
        EXPECT_GT(size.width(), 100) << file;
        EXPECT_GT(size.height(), 40) << file;
        contents.insert(folder.Read(QFileInfo(file.c_str()).fileName().toStdString()));
    }
    EXPECT_EQ(contents.size(), pages_.size());
}

} // namespace
