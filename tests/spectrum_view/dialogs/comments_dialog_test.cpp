// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/dialogs/comments_dialog.h"

#include "host/platform/host_platform.h"
#include "host/toolkit/modal_gateway.h"
#include "host/toolkit/window.h"
#include "resources/dialogs/dialog_templates.h"
#include "spectra_contract/spectra_types.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/recording_gui.h"
#include "tests/support/temp_folder.h"

#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace {

using namespace orvanta;
using test::FormUser;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Fields(const SpectralComments& of) {
    return {of.protocol1, of.protocol2, of.protocol3, of.code1, of.code2, of.code3, of.comment};
}

/// The program lies in a folder of the test, and so does its history.
class Comments : public testing::Test {
protected:
    Comments() {
        resources::RegisterDialogs();
        services.files.RunFrom(folder.Path("orvanta"));
    }
    ~Comments() override { resources::ForgetDialogs(); }

    void Write(const std::string& protocols) const {
        folder.Write("spectra.xml", "<?xml version=\"1.0\"?>\n<DOC>\n" + protocols + "</DOC>\n");
    }
    /// The user does so and closes the dialog by a button.
    int Run(const std::function<void(FormUser&)>& act, int button = 1) {
        SpectralCommentsDlg dialog(nullptr, &comments);
        test::ScriptedUser user;
        user.Meets<SpectralCommentsDlg>([&](SpectralCommentsDlg& shown) {
            FormUser form(shown);
            act(form);
            shown.Item<QPushButton>(button)->click();
        });
        return dialog.Execute();
    }
    /// Enters a first protocol and agrees.
    int Enter(const QString& protocol) {
        return Run([&](FormUser& form) { form.Types("protocol1", protocol); });
    }
    std::string History() const { return folder.Read("spectra.xml"); }
    bool HasHistory() const { return std::filesystem::exists(folder.Path("spectra.xml")); }

    test::FakeServices services;
    test::TempFolder folder;
    SpectralComments comments;
};

std::vector<std::string> Entries(const owl::TDialog& dialog, int control) {
    std::vector<std::string> texts;
    const auto* box = dialog.Item<QComboBox>(control);
    for (int row = 0; box != nullptr && row < box->count(); ++row) {
        texts.push_back(box->itemText(row).toStdString());
    }
    return texts;
}

TEST_F(Comments, HaveTheirCaptions) {
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    EXPECT_EQ(dialog.windowTitle(), "Spectral Comments");
    const std::pair<int, const char*> captions[] = {
        {102, "Protocol 1"}, {103, "Protocol 2"}, {104, "Protocol 3"}, {108, "Code 1"}, {109, "Code 2"},
        {110, "Code 3"},     {301, "Comment"},    {1, "OK"},           {2, "Cancel"}};
    for (const auto& [control, caption] : captions) {
        EXPECT_EQ(dialog.GetDlgItemText(control, 99), caption) << control;
    }
}

TEST_F(Comments, HaveBoxesToTypeInEditsAndAMemo) {
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    for (const int control : {105, 106, 107}) {
        ASSERT_NE(dialog.Item<QComboBox>(control), nullptr);
        EXPECT_TRUE(dialog.Item<QComboBox>(control)->isEditable());
    }
    for (const int control : {111, 112, 113}) {
        EXPECT_NE(dialog.Item<QLineEdit>(control), nullptr) << control;
    }
    ASSERT_NE(dialog.Item<QPlainTextEdit>(101), nullptr);
    EXPECT_EQ(dialog.Item<QPlainTextEdit>(101)->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

TEST_F(Comments, AreReachedByTheLettersOfTheirLabels) {
    SpectralCommentsDlg dialog(nullptr, &comments);
    for (const auto& [label, control] :
         {std::pair{102, 105}, {103, 106}, {104, 107}, {108, 111}, {109, 112}, {110, 113}, {301, 101}}) {
        ASSERT_NE(dialog.Item<QLabel>(label), nullptr) << label;
        EXPECT_EQ(dialog.Item<QLabel>(label)->buddy(), dialog.GetDlgItem(control)) << label;
    }
}

TEST_F(Comments, AreReachedByTabInTheirOrder) {
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    QStringList order;
    const QWidget* next = dialog.GetDlgItem(105);
    do {
        if (next->property("controlId").isValid() && next->focusPolicy() != Qt::NoFocus) {
            order << next->property("controlId").toString();
        }
        next = next->nextInFocusChain();
    } while (next != dialog.GetDlgItem(105));
    EXPECT_EQ(order.join(' ').toStdString(), "105 106 107 111 112 113 101 1 2");
    EXPECT_TRUE(dialog.Item<QPlainTextEdit>(101)->tabChangesFocus());
}

TEST_F(Comments, AreEmptyAtTheFirstUse) {
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    for (const int control : {105, 106, 107, 111, 112, 113, 101}) {
        EXPECT_EQ(dialog.GetDlgItemText(control, 99), "") << control;
    }
    EXPECT_THAT(Entries(dialog, 105), IsEmpty());
    EXPECT_FALSE(HasHistory());
}

TEST_F(Comments, LeaveTheirFirstNameInTheHistory) {
    EXPECT_EQ(Enter("Sleep"), owl::kIdOk);
    EXPECT_EQ(History(), "<?xml version=\"1.0\"?>\n"
                         "<DOC>\n"
                         "\t<Protocol1 Last=\"Sleep\">\n"
                         "\t\t<Item Label=\"Sleep\" />\n"
                         "\t</Protocol1>\n"
                         "\t<Protocol2 />\n"
                         "\t<Protocol3 />\n"
                         "</DOC>\n");
}

TEST_F(Comments, OfferTheNamesOfTheHistoryAndTheLastOne) {
    Write("<Protocol1 Last='EEG'><Item Label='awake'/><Item Label='EEG'/></Protocol1>"
          "<Protocol2><Item Label='b'/></Protocol2><Protocol3 Last='c'/>");
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    EXPECT_THAT(Entries(dialog, 105), ElementsAre("awake", "EEG"));
    EXPECT_THAT(Entries(dialog, 106), ElementsAre("b"));
    EXPECT_THAT(Entries(dialog, 107), IsEmpty());
    EXPECT_EQ(dialog.GetDlgItemText(105, 99), "EEG");
    EXPECT_EQ(dialog.GetDlgItemText(106, 99), "");
    EXPECT_EQ(dialog.GetDlgItemText(107, 99), "c");
}

TEST_F(Comments, KeepANameThatIsEnteredAgainOnce) {
    for (const char* name : {"awake", "EEG", "awake"}) {
        Enter(name);
    }
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    EXPECT_THAT(Entries(dialog, 105), ElementsAre("EEG", "awake"));
    EXPECT_EQ(dialog.GetDlgItemText(105, 99), "awake");
}

TEST_F(Comments, StartEmptyAfterAnEmptyText) {
    Enter("Sleep");
    Enter("");
    EXPECT_THAT(History(), HasSubstr("\t<Protocol1>\n\t\t<Item Label=\"Sleep\" />\n\t</Protocol1>\n"));
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    EXPECT_THAT(Entries(dialog, 105), ElementsAre("Sleep"));
    EXPECT_EQ(dialog.GetDlgItemText(105, 99), "");
}

TEST_F(Comments, TakeANameThatIsTheBeginningOfAnotherOrItsOtherCase) {
    Write("<Protocol1><Item Label='Sleep lab'/></Protocol1>");
    for (const char* name : {"Sleep", "sleep lab"}) {
        Enter(name);
        EXPECT_EQ(comments.protocol1, name);
    }
}

TEST_F(Comments, ArePassedOnInTheirOrderOnOk) {
    const int answer = Run([](FormUser& form) {
        for (const char* field : {"protocol1", "protocol2", "protocol3", "code1", "code2", "code3"}) {
            form.Types(field, QString("%1 & <x>").arg(field));
        }
        form.Types("comment", "two\nlines");
    });
    EXPECT_EQ(answer, owl::kIdOk);
    EXPECT_THAT(Fields(comments), ElementsAre("protocol1 & <x>", "protocol2 & <x>", "protocol3 & <x>",
                                              "code1 & <x>", "code2 & <x>", "code3 & <x>", "two\nlines"));
    EXPECT_THAT(History(), HasSubstr("<Protocol3 Last=\"protocol3 &amp; &lt;x>\">"));
}

TEST_F(Comments, ChangeNothingOnCancel) {
    Enter("Sleep");
    const std::string earlier = History();
    comments.code1 = "before";
    const int answer = Run(
        [](FormUser& form) {
            form.Types("protocol1", "Awake");
            form.Types("code1", "after");
        },
        2);
    EXPECT_EQ(answer, owl::kIdCancel);
    EXPECT_EQ(comments.code1, "before");
    EXPECT_EQ(comments.protocol1, "Sleep");
    EXPECT_EQ(History(), earlier);
}

TEST_F(Comments, CodesAndCommentAreNotRemembered) {
    Run([](FormUser& form) {
        form.Types("code1", "C");
        form.Types("comment", "once");
    });
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    EXPECT_EQ(dialog.GetDlgItemText(111, 99), "");
    EXPECT_EQ(dialog.GetDlgItemText(101, 99), "");
}

TEST_F(Comments, KeepWhatAnotherProgramAddedMeanwhile) {
    Write("<Protocol1><Item Label='A'/></Protocol1>");
    Run([this](FormUser& form) {
        form.Types("protocol1", "Mine");
        Write("<Protocol1 Last='Theirs'><Item Label='A'/><Item Label='Theirs'/></Protocol1>");
    });
    EXPECT_THAT(History(), HasSubstr("\t<Protocol1 Last=\"Mine\">\n"
                                     "\t\t<Item Label=\"A\" />\n"
                                     "\t\t<Item Label=\"Mine\" />\n"
                                     "\t\t<Item Label=\"Theirs\" />\n"));
}

TEST_F(Comments, KeepTheirFirst255Characters) {
    const QString text = QString(254, 'x') + "üyz";
    Run([&](FormUser& form) {
        for (const char* field : {"protocol1", "code1", "comment"}) {
            form.Types(field, text);
        }
    });
    const std::string kept = std::string(254, 'x') + "ü";
    EXPECT_EQ(comments.protocol1, kept);
    EXPECT_EQ(comments.code1, kept);
    EXPECT_EQ(comments.comment, kept);
}

TEST_F(Comments, NeverEndWithHalfACharacter) {
    Run([&](FormUser& form) { form.Types("comment", QString(254, 'x')); });
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    dialog.SetDlgItemText(101, std::string(254, 'x') + "\U0001F9E0");
    dialog.accept();
    EXPECT_EQ(comments.comment, std::string(254, 'x'));
}

TEST_F(Comments, SayWhenTheCommentIsTooLong) {
    Run([](FormUser& form) {
        form.Types("comment", QString(255, 'x'));
        EXPECT_FALSE(form.IsVisible("limit"));
        form.Types("comment", QString(256, 'x'));
        EXPECT_TRUE(form.IsVisible("limit"));
        EXPECT_EQ(form.TextOf("limit"), "Only the first 255 characters are kept");
    });
}

TEST_F(Comments, AreEmptyWithADamagedHistoryWhichIsReplaced) {
    folder.Write("spectra.xml", "<DOC");
    EXPECT_EQ(Enter("Sleep"), owl::kIdOk);
    EXPECT_THAT(History(), HasSubstr("<Item Label=\"Sleep\" />"));
}

TEST_F(Comments, AreKeptWhereTheHistoryCannotBeWritten) {
    services.files.RunFrom(folder.Path("missing/orvanta"));
    EXPECT_EQ(Enter("Sleep"), owl::kIdOk);
    EXPECT_EQ(comments.protocol1, "Sleep");
    EXPECT_FALSE(std::filesystem::exists(folder.Path("missing")));
}

TEST_F(Comments, DoNotLookIntoAHistoryThatCannotBeReached) {
    Enter("Sleep");
    services.files.Fail(folder.Path("spectra.xml"), EACCES);
    SpectralCommentsDlg dialog(nullptr, &comments);
    dialog.grab();
    EXPECT_EQ(dialog.GetDlgItemText(105, 99), "");
}

TEST_F(Comments, OfAnInstalledProgramAreRememberedForTheUser) {
    Write("<Protocol1><Item Label='Sleep lab'/></Protocol1>");
    services.files.Fail(std::filesystem::path(folder.Path("orvanta")).parent_path(), EACCES);
    const test::RecordingGui gui;
    const platform::HostPlatform platform(gui, "", folder.Path("data"));
    const std::string installed = History();
    {
        SpectralCommentsDlg dialog(nullptr, &comments, &platform);
        dialog.grab();
        dialog.SetDlgItemText(105, "Nap");
        dialog.accept();
    }
    SpectralCommentsDlg dialog(nullptr, &comments, &platform);
    dialog.grab();
    EXPECT_THAT(Entries(dialog, 105), ElementsAre("Nap", "Sleep lab"));
    EXPECT_EQ(History(), installed);
}

TEST_F(Comments, StandOverTheirView) {
    owl::TWindow view;
    const SpectralCommentsDlg dialog(&view, &comments);
    EXPECT_EQ(dialog.parentWidget(), &view);
}

} // namespace
