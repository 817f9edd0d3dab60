// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/file_chooser.h"
#include "tests/host/toolkit/modal_hand.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/temp_folder.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <gtest/gtest.h>

#include <memory>

namespace {

using orvanta::test::ModalHand;
using orvanta::test::TempFolder;

class FileChooser : public testing::Test {
protected:
    /// A question in the test's folder.
    owl::FileQuestion Question() const {
        owl::FileQuestion question;
        question.title = "Save Spectra";
        question.filter = "Text file|*.txt|All|*.*";
        question.extension = "txt";
        question.folder = folder_.Path("");
        return question;
    }

    static void Types(QFileDialog& chooser, const QString& name) {
        // Typing with the focus in the edit deselects the file that was offered.
        chooser.findChild<QListView*>("listView")->clearSelection();
        chooser.findChild<QLineEdit*>("fileNameEdit")->setText(name);
        static_cast<QDialog&>(chooser).accept();
    }

    /// The user types a name and accepts.
    ModalHand& Enters(const QString& name) {
        return hand_.Meets<QFileDialog>([name](QFileDialog& chooser) { Types(chooser, name); });
    }

    TempFolder folder_;
    ModalHand hand_;
};

TEST(QtFileFilter, TurnsPairsIntoQtsForm) {
    const std::pair<const char*, const char*> cases[] = {
        {"Text|*.txt|All|*.*", "Text (*.txt);;All (*)"},
        {"XML Files (*.xml)|*.xml", "XML Files (*.xml)"},
        {"Signals (raw)|*.edf;*.bdf", "Signals (raw) (*.edf *.bdf)"},
        {"Two (*.a, *.b)|*.a; *.b", "Two (*.a *.b)"},
        {"Odd one out|", ""},
        {"", ""},
    };
    for (const auto& [filter, expected] : cases) {
        EXPECT_EQ(owl::QtFileFilter(filter).toStdString(), expected) << filter;
    }
}

TEST_F(FileChooser, StartsWithTitleFolderNameAndFilter) {
    owl::FileQuestion question = Question();
    question.name = "regressions.txt";
    hand_.Meets<QFileDialog>([&](QFileDialog& chooser) {
        EXPECT_EQ(chooser.windowTitle(), "Save Spectra");
        EXPECT_EQ(chooser.directory(), QDir(QString::fromStdString(folder_.Path(""))));
        EXPECT_EQ(chooser.findChild<QLineEdit*>("fileNameEdit")->text(), "regressions.txt");
        EXPECT_EQ(chooser.nameFilters(), QStringList({"Text file (*.txt)", "All (*)"}));
        EXPECT_EQ(chooser.acceptMode(), QFileDialog::AcceptSave);
        chooser.reject();
    });
    EXPECT_EQ(owl::ChooseFileToSave(nullptr, question), std::nullopt);
}

TEST_F(FileChooser, StartsInTheCurrentFolderWhenTheWantedOneIsMissing) {
    for (const char* missing : {"", "/does/not/exist"}) {
        owl::FileQuestion question = Question();
        question.folder = missing;
        hand_.Meets<QFileDialog>([](QFileDialog& chooser) {
            EXPECT_EQ(chooser.directory(), QDir::current());
            EXPECT_EQ(chooser.findChild<QLineEdit*>("fileNameEdit")->text(), "");
            chooser.reject();
        });
        EXPECT_EQ(owl::ChooseFileToOpen(nullptr, question), std::nullopt);
    }
}

TEST_F(FileChooser, TakesTheExtensionOfAPattern) {
    owl::FileQuestion question = Question();
    question.extension = "*.txt";
    Enters("night");
    EXPECT_EQ(owl::ChooseFileToSave(nullptr, question), folder_.Path("night.txt"));
}

TEST_F(FileChooser, AddsTheExtensionToANameToSaveWithoutOne) {
    const std::pair<const char*, const char*> cases[] = {
        {"night", "night.txt"},     {"night.txt", "night.txt"},     {"night.TXT", "night.TXT"},
        {"night.csv", "night.csv"}, {"Dr. Meyer", "Dr. Meyer.txt"}, {"alpha 10.5 Hz", "alpha 10.5 Hz.txt"},
        {".hidden", ".hidden"}};
    for (const auto& [typed, expected] : cases) {
        Enters(typed);
        EXPECT_EQ(owl::ChooseFileToSave(nullptr, Question()), folder_.Path(expected));
    }
    owl::FileQuestion question = Question();
    question.extension = "";
    Enters("night");
    EXPECT_EQ(owl::ChooseFileToSave(nullptr, question), folder_.Path("night"));
}

TEST_F(FileChooser, OpensAFileWithoutExtensionAsItIs) {
    folder_.Write("README", "x");
    Enters("README");
    EXPECT_EQ(owl::ChooseFileToOpen(nullptr, Question()), folder_.Path("README"));
}

TEST_F(FileChooser, AsksBeforeAFileIsReplaced) {
    folder_.Write("night.txt", "x");
    Enters("night.txt");
    hand_.Meets<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    EXPECT_EQ(owl::ChooseFileToSave(nullptr, Question()), folder_.Path("night.txt"));
}

TEST_F(FileChooser, AsksAboutTheNameWithItsExtensionAndAgainAfterNo) {
    folder_.Write("night.txt", "x");
    Enters("night");
    hand_
        .Meets<QMessageBox>([&](QMessageBox& box) {
            EXPECT_TRUE(box.text()
                            .remove(QChar(0x200B))
                            .startsWith(QString::fromStdString(folder_.Path("night.txt"))));
            EXPECT_TRUE(box.defaultButton() == box.button(QMessageBox::No));
            box.button(QMessageBox::No)->click();
        })
        .Meets<QFileDialog>([](QFileDialog& chooser) {
            EXPECT_EQ(chooser.findChild<QLineEdit*>("fileNameEdit")->text(), "night.txt");
            Types(chooser, "day");
        });
    EXPECT_EQ(owl::ChooseFileToSave(nullptr, Question()), folder_.Path("day.txt"));
}

TEST_F(FileChooser, ReplacesWithoutAskingWhenToldSo) {
    folder_.Write("night.txt", "x");
    owl::FileQuestion question = Question();
    question.askOverwrite = false;
    for (const char* typed : {"night", "night.txt"}) {
        Enters(typed);
        EXPECT_EQ(owl::ChooseFileToSave(nullptr, question), folder_.Path("night.txt"));
    }
}

TEST_F(FileChooser, AnswersNothingWhenItsOwnerGoesDuringTheQuestion) {
    folder_.Write("night.txt", "x");
    for (const char* typed : {"night.txt", "night"}) { // the chooser asks; the question about the longer name
        auto owner = std::make_unique<QWidget>();
        Enters(typed);
        hand_.Meets<QMessageBox>([&](QMessageBox& box) {
            QAbstractButton* yes = box.button(QMessageBox::Yes);
            const QPointer<QMessageBox> there(&box);
            owner.reset();
            if (there && there->isVisible()) {
                yes->click();
            }
        });
        EXPECT_EQ(owl::ChooseFileToSave(HWND(owner.get()), Question()), std::nullopt) << typed;
    }
}

TEST_F(FileChooser, ComesUpThroughTheGateway) {
    folder_.Write("a.txt", "x");
    Enters("a.txt");
    EXPECT_EQ(owl::CurrentModalGateway().AskFileToOpen(nullptr, Question()), folder_.Path("a.txt"));
    Enters("b");
    EXPECT_EQ(owl::CurrentModalGateway().AskFileToSave(nullptr, Question()), folder_.Path("b.txt"));
}

} // namespace
