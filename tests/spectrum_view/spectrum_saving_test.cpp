// SPDX-License-Identifier: GPL-3.0-or-later
#include "resources/dialogs/dialog_templates.h"
#include "spectrum_view/dialogs/comments_dialog.h"
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/file_limit.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/form_user.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/temp_folder.h"

#include <pugixml.hpp>

#include <filesystem>
#include <optional>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class SavingView : public test::ViewFixture {
protected:
    SavingView() {
        resources::RegisterDialogs();
        services.files.RunFrom(folder.Path("program/orvanta"));
        std::filesystem::create_directory(folder.Path("program"));
    }
    ~SavingView() override { resources::ForgetDialogs(); }

    /// A view with an analysis.
    Spectrum& OpenWithAnalysis() {
        UseFiveBipolarChannels();
        Add();
        return Open();
    }
    /// Closes the comments by OK once this is done.
    void Comments(std::function<void(const test::FormUser&)> act = {}) {
        user.Meets<SpectralCommentsDlg>([act](SpectralCommentsDlg& dialog) {
            if (act) {
                act(test::FormUser(dialog));
            }
            dialog.accept();
        });
    }
    void RemoveMain() {
        SpectMacroResult* main = manager.GetMain();
        manager.Remove(main);
        delete main;
    }
    bool Exists(const std::string& name) const { return std::filesystem::exists(folder.Path(name)); }
    std::string Saved(const char* element, const char* child) const {
        pugi::xml_document document;
        document.load_file(file.c_str());
        return document.child("spectra").child(element).child_value(child);
    }
    const std::vector<std::string>& Errors() const { return window.platform.gui.Errors(); }

    test::FakeServices services;
    test::ScriptedUser user;
    test::TempFolder folder;
    std::string file = folder.Path("my spectra.xml");
};

TEST_F(SavingView, RefusesWithoutAnAnalysis) {
    Open();
    user.AnswersMessage(owl::kIdOk);
    EXPECT_EQ(view->SaveSpectraFile(), "");
    EXPECT_THAT(user.Messages(), ElementsAre(test::ScriptedUser::Message{
                                     view->GetHandle(), "Unable to access Spectra", "Error", 48}));
    EXPECT_THAT(user.FileRequests(), IsEmpty());
}

TEST_F(SavingView, AsksForTheFile) {
    window.platform.texts["Spectrum/SaveDir"] = folder.Path("spectra") + "\\";
    OpenWithAnalysis();
    user.ChoosesFile(std::nullopt);
    view->SaveSpectraFile();
    const owl::FileQuestion question{
        "",  "XML Files (*.xml)|*.xml|", "XML", folder.Path("spectra/"), "All_memory_Hanning_1_50_memory.xml",
        true};
    EXPECT_THAT(user.FileRequests(), ElementsAre(test::ScriptedUser::FileRequest{true, question}));
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path("spectra")));
}

TEST_F(SavingView, AsksInNoFolderWithoutTheSetting) {
    OpenWithAnalysis();
    user.ChoosesFile(std::nullopt);
    view->SaveSpectraFile();
    ASSERT_THAT(user.FileRequests(), SizeIs(1));
    EXPECT_EQ(user.FileRequests()[0].question.folder, "");
}

TEST_F(SavingView, EndsWhenNoFileIsChosen) {
    OpenWithAnalysis();
    user.ChoosesFile(std::nullopt);
    EXPECT_EQ(view->SaveSpectraFile(), "");
    EXPECT_EQ(user.DialogsShown(), 0);
}

TEST_F(SavingView, WritesNothingWhenTheCommentsAreCancelled) {
    OpenWithAnalysis();
    user.ChoosesFile(file);
    user.Meets<SpectralCommentsDlg>([this](SpectralCommentsDlg& dialog) {
        EXPECT_EQ(dialog.parentWidget(), view.get());
        test::FormUser(dialog).Types("protocol1", "Sleep");
        dialog.reject();
    });
    EXPECT_EQ(view->SaveSpectraFile(), "");
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(Exists("program/spectra.xml"));
}

TEST_F(SavingView, WritesTheMainAnalysisWithTheComments) {
    OpenWithAnalysis();
    user.ChoosesFile(file);
    Comments([](const test::FormUser& form) {
        form.Types("protocol1", "Sleep");
        form.Types("protocol2", "Nap & <rest>");
        form.Types("protocol3", "P3");
        form.Types("code1", "A-1");
        form.Types("code2", "B-2");
        form.Types("code3", "C-3");
        form.Types("comment", "drowsy\nafter 5 min");
    });
    EXPECT_EQ(view->SaveSpectraFile(), file);
    EXPECT_EQ(Saved("analysis", "fft_count"), "9");
    EXPECT_EQ(Saved("comments", "protocol1"), "Sleep");
    EXPECT_EQ(Saved("comments", "protocol2"), "Nap & <rest>");
    EXPECT_EQ(Saved("comments", "protocol3"), "P3");
    EXPECT_EQ(Saved("comments", "code1"), "A-1");
    EXPECT_EQ(Saved("comments", "code2"), "B-2");
    EXPECT_EQ(Saved("comments", "code3"), "C-3");
    EXPECT_EQ(Saved("comments", "comment"), "drowsy\nafter 5 min");
    EXPECT_TRUE(Exists("program/spectra.xml"));
}

TEST_F(SavingView, StartsEachSaveWithoutComments) {
    OpenWithAnalysis();
    user.ChoosesFile(file);
    Comments([](const test::FormUser& form) { form.Types("code1", "first"); });
    user.ChoosesFile(file);
    Comments();
    Item(kCmSaveSpectra).trigger();
    EXPECT_EQ(Saved("comments", "code1"), "first");
    Item(kCmSaveSpectra).trigger();
    EXPECT_EQ(Saved("comments", "code1"), "");
}

TEST_F(SavingView, SaysSoInItsAnswerOnlyWhenTheAnalysisIsGoneMeanwhile) {
    OpenWithAnalysis();
    user.ChoosesFile(file);
    Comments([this](const test::FormUser&) { RemoveMain(); });
    EXPECT_EQ(view->SaveSpectraFile(), "SPECTRADATA UNAVAILABLE ERROR");
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_THAT(user.Messages(), IsEmpty());
    EXPECT_THAT(Errors(), IsEmpty());
}

TEST_F(SavingView, SavesTheAnalysisThatIsMainInTheEnd) {
    OpenWithAnalysis();
    Add()->GetMacro().SetContrastValue(7);
    user.ChoosesFile(file);
    Comments([this](const test::FormUser&) { RemoveMain(); });
    view->SaveSpectraFile();
    EXPECT_EQ(Saved("settings", "contrast"), "7");
}

/// What goes wrong with the file is told by the platform; the view answers the path all the same.
class FailingSave : public SavingView {
protected:
    void Save(const std::string& path, std::function<void()> meanwhile = {}) {
        OpenWithAnalysis();
        user.ChoosesFile(path);
        Comments([meanwhile](const test::FormUser&) {
            if (meanwhile) {
                meanwhile();
            }
        });
        EXPECT_EQ(view->SaveSpectraFile(), path);
        EXPECT_THAT(user.Messages(), IsEmpty());
    }
};

TEST_F(FailingSave, InAFolderThatVanishedTellsWhy) {
    const std::string path = folder.Write("spectra/other.xml", "");
    Save(folder.Path("spectra/new.xml"), [this] { std::filesystem::remove_all(folder.Path("spectra")); });
    EXPECT_THAT(Errors(),
                ElementsAre(AllOf(HasSubstr("spectra/new.xml"), HasSubstr("No such file or directory"))));
}

TEST_F(FailingSave, InAFolderThatTakesNoFilesTellsWhy) {
    Save("/proc/spectra.xml");
    EXPECT_THAT(Errors(), ElementsAre(HasSubstr("/proc/spectra.xml: cannot be written")));
}

TEST_F(FailingSave, UnderATooLongNameTellsWhy) {
    const std::string path = folder.Path(std::string(252, 'n') + ".xml");
    Save(path);
    EXPECT_THAT(Errors(), ElementsAre(AllOf(HasSubstr(path), HasSubstr("File name too long"))));
}

TEST_F(FailingSave, WithoutRoomOnTheDiskLeavesTheEarlierFileWhole) {
    folder.Write("my spectra.xml", "earlier");
    std::optional<test::FileLimit> full;
    Save(file, [&full] { full.emplace(1000); });
    full.reset();
    EXPECT_EQ(folder.Read("my spectra.xml"), "earlier");
    EXPECT_THAT(Errors(), ElementsAre(AllOf(HasSubstr(file), HasSubstr("File too large"))));
}

TEST_F(FailingSave, OverAFolderLeavesIt) {
    std::filesystem::create_directory(file);
    Save(file);
    EXPECT_TRUE(std::filesystem::is_directory(file));
    EXPECT_THAT(Errors(), ElementsAre(HasSubstr("is no regular file")));
}

class LaunchingView : public SavingView {
protected:
    LaunchingView() { window.platform.texts["Spectrum/Tabulix"] = program; }

    void Launch() { Item(kCmSaveAndLaunch).trigger(); }
    const std::vector<test::FakeProcesses::Started>& Launched() const {
        return services.processes.Launched();
    }

    std::string program = folder.Write("statistics/tabulix", "");
};

TEST_F(LaunchingView, StartsTheProgramOnTheSavedFile) {
    OpenWithAnalysis();
    user.ChoosesFile(file);
    Comments();
    Launch();
    EXPECT_EQ(Saved("analysis", "fft_count"), "9");
    EXPECT_THAT(Launched(), ElementsAre(test::FakeProcesses::Started{"\"" + program + "\" \"" + file + "\"",
                                                                     folder.Path("statistics/")}));
}

TEST_F(LaunchingView, StartsNothingWhenNothingIsSaved) {
    OpenWithAnalysis();
    user.ChoosesFile(std::nullopt);
    Launch();
    user.ChoosesFile(folder.Path("vanished/spectra.xml"));
    Comments();
    Launch();
    user.ChoosesFile(file);
    Comments([this](const test::FormUser&) { RemoveMain(); });
    Launch();
    EXPECT_THAT(Launched(), IsEmpty());
    EXPECT_THAT(user.Messages(), IsEmpty());
}

TEST_F(LaunchingView, StartsOnWhateverFileHasThatNameAfterAFailedSave) {
    folder.Write("my spectra.xml", "earlier");
    Add(false); // not computed, so it cannot be saved
    Open();
    user.ChoosesFile(file);
    Comments();
    Launch();
    EXPECT_EQ(folder.Read("my spectra.xml"), "earlier");
    EXPECT_THAT(Errors(), SizeIs(1));
    EXPECT_THAT(Launched(), SizeIs(1));
}

TEST_F(LaunchingView, LooksForTheProgramAgainAfterTheSave) {
    OpenWithAnalysis();
    user.ChoosesFile(file);
    Comments([this](const test::FormUser&) { std::filesystem::remove(program); });
    Launch();
    EXPECT_TRUE(std::filesystem::exists(file));
    EXPECT_THAT(Launched(), IsEmpty());
}

TEST_F(LaunchingView, LetsADerivedViewSaveInItsOwnWay) {
    class Other : public Spectrum {
    public:
        using Spectrum::Spectrum;
        std::string answer;
        std::string SaveSpectraFile() override { return answer; }
    };
    Other other(window, recording.get(), &manager, false);
    other.answer = folder.Write("other.xml", "");
    other.CmSaveSpectraAndLaunchStat();
    ASSERT_THAT(Launched(), SizeIs(1));
    EXPECT_THAT(Launched()[0].commandLine, HasSubstr("\" \"" + other.answer + "\""));
}

} // namespace
