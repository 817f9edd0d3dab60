// SPDX-License-Identifier: GPL-3.0-or-later
// Spectra saved under many settings with one key.
#include "tests/spectrum_view/view_fixture.h"
#include "tests/support/counting_source.h"
#include "tests/support/file_limit.h"
#include "tests/support/memory_in_use.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/temp_folder.h"

#include <QTest>
#include <pugixml.hpp>

#include <filesystem>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;
using testing::Each;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const char* const kWindows[] = {"Rectangular", "Hamming", "Hanning", "Triangular"};

/// 40 s at 8 Hz with 9 s of "Closed", 5 s of "Open" and 4.5 s of "Talk", and a click that has no length.
signal::RecordingData EyesData() {
    return test::SmallData(
        40, {{1, 9, "Closed"}, {12, 5, "Open"}, {20, 4.5, "Talk"}, {30, std::nullopt, "Click"}});
}

class Batch : public test::ViewFixture {
protected:
    explicit Batch(signal::RecordingData data = EyesData()) {
        source = std::make_shared<test::CountingSource>(data.source);
        data.source = source;
        eyes = signal::MakeRecording(std::move(data));
        analyses = std::make_unique<SpectraMgr>(eyes.get(), nullptr);
        analyses->push_back(new SpectMacroResult(test::SmallMacro(), eyes.get(), nullptr));
        view = std::make_unique<Spectrum>(window, eyes.get(), analyses.get(), false);
        view->Create();
        SaveTo(folder.Path("spectra"));
        services.keys.Hold(owl::kVkControl);
        services.keys.Hold(owl::kVkShift);
    }
    ~Batch() override {
        window.platform.gui.OnText = {};
        window.platform.gui.OnPosition = {};
        view.reset();
    }

    void SaveTo(const std::string& saveFolder) { window.platform.texts["Spectrum/SaveDir"] = saveFolder; }
    void Press(char key) { QTest::keyClick(view.get(), key, Qt::ControlModifier | Qt::ShiftModifier); }
    SpectMacroResult& Main() { return *analyses->GetMain(); }
    const test::RecordingGui& Gui() const { return window.platform.gui; }
    /// Does something when a display shows a text that starts so.
    void When(const std::string& text, std::function<void()> action) {
        window.platform.gui.OnText = [text, action](const std::string& shown) {
            if (shown.starts_with(text)) {
                action();
            }
        };
    }

    /// Names of the files, in alphabetical order.
    std::vector<std::string> Files(const std::string& below = "spectra") const {
        std::vector<std::string> names;
        if (std::filesystem::exists(folder.Path(below))) {
            for (const auto& file : std::filesystem::directory_iterator(folder.Path(below))) {
                names.push_back(file.path().filename().string());
            }
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    static std::string Name(const std::string& event, const std::string& taper, int seconds) {
        return event + "_memory_" + taper + "_" + std::to_string(seconds) + "_50_memory.edf.xml";
    }
    static std::vector<std::string> Names(const std::vector<std::string>& events,
                                          const std::vector<int>& lengths) {
        std::vector<std::string> names;
        for (const int seconds : lengths) {
            for (const char* taper : kWindows) {
                for (const std::string& event : events) {
                    names.push_back(Name(event, taper, seconds));
                }
            }
        }
        return names;
    }
    static std::vector<std::string> Sorted(std::vector<std::string> names) {
        std::sort(names.begin(), names.end());
        return names;
    }
    /// The files in the order in which the display named them.
    std::vector<std::string> Announced() const {
        std::vector<std::string> names;
        for (const std::string& text : Gui().ProgressTexts()) {
            names.push_back(text.substr(text.rfind(' ') + 1));
        }
        return names;
    }

    test::FakeServices services;
    test::TempFolder folder;
    std::shared_ptr<test::CountingSource> source;
    std::unique_ptr<EEGFileInfoType> eyes;
    std::unique_ptr<SpectraMgr> analyses;
};

const std::vector<std::string> kEvents = {"Closed", "Open", "Talk"};

TEST_F(Batch, OfALengthSavesEveryEventUnderEveryWindow) {
    for (const int seconds : {1, 2, 4}) {
        SaveTo(folder.Path(std::to_string(seconds)));
        Press(static_cast<char>('0' + seconds));
        EXPECT_EQ(Files(std::to_string(seconds)), Sorted(Names(kEvents, {seconds})));
    }
    EXPECT_EQ(Announced(), Names(kEvents, {1, 2, 4})); // in this order
    EXPECT_THAT(Gui().Errors(), IsEmpty());
}

TEST_F(Batch, OfAllSavesThreeLengthsInOneGo) {
    Press('A');
    EXPECT_EQ(Files(), Sorted(Names(kEvents, {1, 2, 4})));
    EXPECT_EQ(Announced(), Names(kEvents, {1, 2, 4}));
    EXPECT_THAT(Gui().Progresses(),
                ElementsAre("Saving spectra: 1 of 36: " + Name("Closed", "Rectangular", 1)));
}

TEST_F(Batch, OfEventsSavesEachUnderLengthAndWindowAsTheyAre) {
    Main().SetDSPWindowStr("Hamming");
    Press('E');
    EXPECT_THAT(Files(), ElementsAre(Name("Closed", "Hamming", 1), Name("Open", "Hamming", 1),
                                     Name("Talk", "Hamming", 1)));
}

TEST_F(Batch, OfWindowsKeepsTheAcceptedEvents) {
    Main().GetMacro().SetAcceptStateList({"Closed", "Talk"});
    Press('W');
    EXPECT_THAT(Files(),
                ElementsAre(Name("Closed+Talk", "Hamming", 1), Name("Closed+Talk", "Hanning", 1),
                            Name("Closed+Talk", "Rectangular", 1), Name("Closed+Talk", "Triangular", 1)));
}

TEST_F(Batch, OfAnotherKeyMakesTheFolderAndSelectsByEventsAndNoMore) {
    for (const int key : {int{Qt::Key_3}, int{Qt::Key_X}, int{Qt::Key_Shift}}) {
        std::filesystem::remove_all(folder.Path("spectra"));
        Main().GetMacro().SetTimeIntervalSelectMode(SpectraMacro::TimeIntervalSelectMode::AllRecording);
        QTest::keyClick(view.get(), static_cast<Qt::Key>(key), Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(std::filesystem::is_directory(folder.Path("spectra"))) << key;
        EXPECT_EQ(Main().GetMacro().GetTimeIntervalSelectMode(),
                  SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
        EXPECT_THAT(Files(), IsEmpty()) << key;
        EXPECT_EQ(Main().GetMacro().GetFFTSeconds(), 1);
        EXPECT_FALSE(Main().IsComputed());
    }
    EXPECT_THAT(Gui().Progresses(), IsEmpty());
}

TEST_F(Batch, NeedsBothModifiersAndAnAnalysis) {
    for (const unsigned released : {owl::kVkControl, owl::kVkShift}) {
        services.keys.Release(released);
        Press('E');
        services.keys.Hold(released);
    }
    SpectMacroResult* main = analyses->GetMain();
    analyses->Remove(main);
    delete main;
    Press('E');
    EXPECT_FALSE(std::filesystem::exists(folder.Path("spectra")));
}

TEST_F(Batch, SavesNoFileOfARejectedLabel) {
    Main().GetMacro().SetRejectEventsList({"Open", "closed"});
    Press('1');
    EXPECT_EQ(Files(), Sorted(Names({"Closed", "Talk"}, {1})));
    EXPECT_THAT(Gui().Progresses(), ElementsAre(StartsWith("Saving spectra: 1 of 8: ")));
}

TEST_F(Batch, TakesAFolderWithAndWithoutASeparatorAtItsEnd) {
    for (const char* name : {"plain", "ended/", "other\\", "made/of/more"}) {
        SaveTo(folder.Path(name));
        Press('E');
        EXPECT_EQ(Files(std::string(name).substr(0, std::string(name).find_last_not_of("/\\") + 1)),
                  (std::vector{Name("Closed", "Hanning", 1), Name("Open", "Hanning", 1),
                               Name("Talk", "Hanning", 1)}))
            << name;
    }
}

TEST_F(Batch, WithoutAFolderSavesToTheCurrentOne) {
    const std::filesystem::path earlier = std::filesystem::current_path();
    folder.Write("current/marker", "");
    std::filesystem::current_path(folder.Path("current"));
    SaveTo("");
    Press('E');
    std::filesystem::current_path(earlier);
    EXPECT_THAT(Files("current"), ElementsAre(Name("Closed", "Hanning", 1), Name("Open", "Hanning", 1),
                                              Name("Talk", "Hanning", 1), "marker"));
}

TEST_F(Batch, NamesWholeSecondsOfALengthBetweenThem) {
    Main().SetFFTSeconds(2.5);
    Press('E');
    EXPECT_THAT(Files(), ElementsAre(Name("Closed", "Hanning", 2), Name("Open", "Hanning", 2),
                                     Name("Talk", "Hanning", 2)));
    EXPECT_EQ(Main().GetMacro().GetFFTSeconds(), 2.5);
}

TEST_F(Batch, WritesOverFilesWithoutAQuestion) {
    const std::string name = "spectra/" + Name("Open", "Hanning", 1);
    folder.Write(name, "of last year");
    Press('E');
    EXPECT_THAT(folder.Read(name), StartsWith("<?xml"));
    EXPECT_THAT(Gui().Warnings(), IsEmpty());
}

TEST_F(Batch, LeavesTheSettingsAsItSetThem) {
    Press('A');
    const SpectraMacro& macro = Main().GetMacro();
    EXPECT_EQ(macro.GetFFTSeconds(), 4);
    EXPECT_EQ(macro.GetDSPWindowStr(), "Triangular");
    EXPECT_THAT(macro.GetAcceptStateList(), ElementsAre("Talk"));
    EXPECT_EQ(macro.GetTimeIntervalSelectMode(), SpectraMacro::TimeIntervalSelectMode::ByStateEvents);
    EXPECT_TRUE(Main().IsComputed());
    EXPECT_FALSE(window.platform.texts.contains("Spectrum/Tabulix"));
    EXPECT_EQ(window.platform.texts.at("Spectrum/SaveDir"), folder.Path("spectra"));
}

TEST_F(Batch, SetsLengthAndWindowAlsoWhenNoEventIsLeft) {
    Main().GetMacro().SetRejectEventsList({"Open", "Closed", "Talk"});
    Press('2');
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_EQ(Main().GetMacro().GetFFTSeconds(), 2);
    EXPECT_EQ(Main().GetMacro().GetDSPWindowStr(), "Triangular");
    EXPECT_THAT(Gui().Progresses(), IsEmpty());
}

TEST_F(Batch, WritesIntoEveryFileWhatItWasComputedWith) {
    Press('A');
    std::set<std::string> spectra;
    for (const int seconds : {1, 2, 4}) {
        for (const char* taper : kWindows) {
            for (const auto& [event, length] : {std::pair("Closed", 9.0), {"Open", 5.0}, {"Talk", 4.5}}) {
                const std::string name = Name(event, taper, seconds);
                pugi::xml_document document;
                ASSERT_TRUE(document.load_file(folder.Path("spectra/" + name).c_str())) << name;
                const pugi::xml_node root = document.child("spectra");
                const pugi::xml_node settings = root.child("settings");
                EXPECT_STREQ(settings.child("window").text().get(), taper);
                EXPECT_EQ(settings.child("fft_seconds").text().as_double(), seconds);
                EXPECT_STREQ(settings.child("states").child("label").text().get(), event);
                EXPECT_FALSE(root.child("comments"));
                // Windows of n s, half over each other, in so many seconds.
                const int epochs = static_cast<int>((length - seconds) / (seconds / 2.0)) + 1;
                EXPECT_EQ(root.child("analysis").child("fft_count").text().as_int(), epochs) << name;
                spectra.insert(root.child("traces").child("trace").child("mean").text().get());
            }
        }
    }
    EXPECT_EQ(spectra.size(), 36u); // each its own
}

// How far it is, and how it ends early

TEST_F(Batch, ShowsOneDisplayThatCountsItsFiles) {
    Press('E');
    EXPECT_THAT(Gui().ProgressTexts(), ElementsAre("Saving spectra: 1 of 3: " + Name("Closed", "Hanning", 1),
                                                   "Saving spectra: 2 of 3: " + Name("Open", "Hanning", 1),
                                                   "Saving spectra: 3 of 3: " + Name("Talk", "Hanning", 1)));
    EXPECT_EQ(Gui().Progresses().size(), 1u);
    EXPECT_EQ(window.platform.progressParent, view->GetHandle());
    EXPECT_TRUE(std::is_sorted(Gui().Positions().begin(), Gui().Positions().end()));
    EXPECT_EQ(Gui().Positions().back(), 1);
}

TEST_F(Batch, ShowsNothingWhenQuiet) {
    window.quiet = true;
    Press('E');
    EXPECT_EQ(Files().size(), 3u);
    EXPECT_THAT(Gui().Progresses(), IsEmpty());
}

TEST_F(Batch, FinishesTheFileUnderWayWhenItIsCancelled) {
    When("Saving spectra: 14 of 36:", [this] { window.platform.gui.Cancelled = true; });
    Press('A');
    std::vector<std::string> saved = Names(kEvents, {1, 2, 4});
    saved.resize(14);
    EXPECT_EQ(Files(), Sorted(saved));
    EXPECT_TRUE(Main().IsComputed());
    EXPECT_EQ(Main().GetMacro().GetFFTSeconds(), 2);
    EXPECT_EQ(Main().GetMacro().GetDSPWindowStr(), "Rectangular");
    EXPECT_THAT(Main().GetMacro().GetAcceptStateList(), ElementsAre("Open"));
    EXPECT_THAT(Gui().Errors(), IsEmpty());
}

TEST_F(Batch, CancelledAtTheEndOfALengthDoesNotBeginTheNext) {
    When("Saving spectra: 12 of 36:", [this] { window.platform.gui.Cancelled = true; });
    Press('A');
    EXPECT_EQ(Files(), Sorted(Names(kEvents, {1})));
    EXPECT_EQ(Main().GetMacro().GetFFTSeconds(), 1);
}

TEST_F(Batch, CanBeStartedAgainAfterACancel) {
    window.platform.gui.Cancelled = true;
    Press('E');
    EXPECT_THAT(Files(), ElementsAre(Name("Closed", "Hanning", 1)));
    window.platform.gui.Cancelled = false;
    Press('E');
    EXPECT_EQ(Files().size(), 3u);
}

TEST_F(Batch, OfAllEndsWithTheLengthInWhichAKeyIsReleased) {
    for (const unsigned released : {owl::kVkControl, owl::kVkShift}) {
        SaveTo(folder.Path(std::to_string(released)));
        When("Saving spectra: 14 of 36:", [this, released] { services.keys.Release(released); });
        Press('A');
        EXPECT_EQ(Files(std::to_string(released)), Sorted(Names(kEvents, {1, 2})));
        EXPECT_EQ(Main().GetMacro().GetFFTSeconds(), 2);
        services.keys.Hold(released);
    }
}

TEST_F(Batch, OfAllPreparesTheFolderAnewForEveryLength) {
    When("Saving spectra: 14 of 36:", [this] { SaveTo(folder.Path("moved")); });
    Press('A');
    EXPECT_EQ(Files(), Sorted(Names(kEvents, {1, 2})));
    EXPECT_EQ(Files("moved"), Sorted(Names(kEvents, {4})));
}

TEST_F(Batch, TakesNoKeyWhileItSaves) {
    When("Saving spectra: 2 of 3:", [this] { Press('W'); });
    Press('E');
    EXPECT_THAT(Files(), ElementsAre(Name("Closed", "Hanning", 1), Name("Open", "Hanning", 1),
                                     Name("Talk", "Hanning", 1)));
    EXPECT_EQ(Main().GetDSPWindowStr(), "Hanning");
}

TEST_F(Batch, EndsWithItsView) {
    When("Saving spectra: 2 of 3:", [this] { view->Destroy(); });
    Press('E');
    EXPECT_THAT(Files(), ElementsAre(Name("Closed", "Hanning", 1)));
    EXPECT_FALSE(view->IsCreated());
}

TEST_F(Batch, SurvivesThatItsViewIsDeletedWhileItComputes) {
    for (const char key : {'E', 'A'}) {
        view = std::make_unique<Spectrum>(window, eyes.get(), analyses.get(), false);
        view->Create();
        SaveTo(folder.Path(std::string(1, key)));
        window.platform.gui.OnPosition = [this] { view.reset(); };
        Press(key);
        EXPECT_EQ(view, nullptr);
        EXPECT_THAT(Files(std::string(1, key)), IsEmpty());
    }
}

// What goes wrong

TEST_F(Batch, TellsOnceOfAllFilesThatWereNotSaved) {
    for (const char* taper : {"Hamming", "Hanning"}) {
        folder.Write("spectra/" + Name("Open", taper, 1) + "/in the way", "");
    }
    Press('1');
    ASSERT_EQ(Gui().Errors().size(), 1u);
    EXPECT_THAT(Gui().Errors()[0], StartsWith("2 of 12 spectra files were not saved.\n\n"));
    EXPECT_THAT(Gui().Errors()[0], HasSubstr(Name("Open", "Hamming", 1)));
    EXPECT_THAT(Gui().Errors()[0], HasSubstr(Name("Open", "Hanning", 1)));
    EXPECT_EQ(Files(), Sorted(Names(kEvents, {1}))); // two of them folders
}

TEST_F(Batch, TellsThreeReasonsOfMany) {
    SaveTo(folder.Write("a file", "") + "/below");
    Press('A');
    ASSERT_EQ(Gui().Errors().size(), 1u);
    const std::string& text = Gui().Errors()[0];
    EXPECT_THAT(text, StartsWith("36 of 36 spectra files were not saved.\n\n"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5); // heading, blank, three reasons, more
    EXPECT_THAT(text, testing::EndsWith("\n…"));
}

TEST_F(Batch, TellsWhyAFileCouldNotBeComputedAndKeepsTheEarlierOne) {
    Main().SetFFTSeconds(6);
    const std::string earlier = "spectra/" + Name("Open", "Hanning", 6);
    folder.Write(earlier, "of last year");
    Press('E');
    ASSERT_EQ(Gui().Errors().size(), 1u);
    EXPECT_THAT(Gui().Errors()[0], StartsWith("2 of 3 spectra files were not saved.\n\n" +
                                              Name("Open", "Hanning", 6) + ": no processed interval"));
    EXPECT_EQ(folder.Read(earlier), "of last year");
    EXPECT_THAT(Files(), ElementsAre(Name("Closed", "Hanning", 6), Name("Open", "Hanning", 6)));
}

TEST_F(Batch, WithoutRoomOnTheDiskLeavesEarlierFilesWholeAndNoPieces) {
    folder.Write("spectra/" + Name("Open", "Hanning", 1), "of last year");
    {
        const test::FileLimit full(1000);
        Press('E');
    }
    EXPECT_THAT(Files(), ElementsAre(Name("Open", "Hanning", 1)));
    EXPECT_EQ(folder.Read("spectra/" + Name("Open", "Hanning", 1)), "of last year");
    ASSERT_EQ(Gui().Errors().size(), 1u);
    EXPECT_THAT(Gui().Errors()[0], StartsWith("3 of 3 spectra files were not saved.\n\n"));
    EXPECT_THAT(Gui().Errors()[0], HasSubstr("File too large"));
}

TEST_F(Batch, InAFolderThatVanishesGoesOnWithTheNextLength) {
    When("Saving spectra: 3 of 36:", [this] { std::filesystem::remove_all(folder.Path("spectra")); });
    Press('A');
    EXPECT_EQ(Files(), Sorted(Names(kEvents, {2, 4})));
    ASSERT_EQ(Gui().Errors().size(), 1u);
    EXPECT_THAT(Gui().Errors()[0], StartsWith("10 of 36 spectra files were not saved.\n\n"));
    EXPECT_THAT(Gui().Errors()[0], HasSubstr("No such file or directory"));
}

signal::RecordingData LongNameData() {
    signal::RecordingData data = EyesData();
    data.patient = std::string(300, 'p');
    return data;
}

class LongNameBatch : public Batch {
protected:
    LongNameBatch() : Batch(LongNameData()) {}
};

TEST_F(LongNameBatch, TellsWhyNothingIsSaved) {
    Press('E');
    EXPECT_THAT(Files(), IsEmpty());
    ASSERT_EQ(Gui().Errors().size(), 1u);
    EXPECT_THAT(Gui().Errors()[0], HasSubstr("File name too long"));
}

TEST_F(Batch, TellsNothingWhenQuiet) {
    window.quiet = true;
    Main().SetFFTSeconds(6);
    Press('E');
    EXPECT_THAT(Gui().Errors(), IsEmpty());
}

// What it costs

TEST_F(Batch, ReadsTheRecordingOnce) {
    Press('A');
    EXPECT_EQ(source->MostReads(), 1u);
}

TEST_F(Batch, DoesNotKeepTheSamplesLongerThanItLasts) {
    Press('E');
    view->CmRecompute();
    EXPECT_EQ(source->MostReads(), 2u);
}

/// Its spectra take 140 kB for each file, and its samples 160 kB.
signal::RecordingData LargeData() {
    constexpr std::size_t kSamples = 40 * 256;
    return test::MakeData({{"Fp1", 256, test::Fp1Values(kSamples)},
                           {"F3", 256, test::F3Values(kSamples)},
                           {"Cz", 256, test::CzValues(kSamples)},
                           {"Pz", 256, test::Fp1Values(kSamples)}},
                          {{1, 9, "Closed"}, {12, 9, "Open"}, {24, 9, "Talk"}});
}

class LargeBatch : public Batch {
protected:
    LargeBatch() : Batch(LargeData()) {}
};

TEST_F(LargeBatch, TakesNoMoreMemoryFromFileToFile) {
    Press('1'); // tapers and plans are kept from now on
    std::vector<std::size_t> used;
    When("Saving spectra:", [&used] { used.push_back(test::MemoryInUse()); });
    Press('1');
    ASSERT_EQ(used.size(), 12u);
    // Before the second file there are spectra and samples, as before the last one.
    constexpr std::size_t kAllowed = 32768;
    EXPECT_LE(used.back(), used[1] + kAllowed);
}

TEST_F(LargeBatch, GivesItsMemoryBack) {
    Press('E');
    const std::size_t before = test::MemoryInUse();
    Press('E');
    constexpr std::size_t kAllowed = 32768;
    EXPECT_LE(test::MemoryInUse(), before + kAllowed);
}

} // namespace
