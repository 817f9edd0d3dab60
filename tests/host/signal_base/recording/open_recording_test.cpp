// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/recording.h"
#include "host/signal_base/recording_error.h"
#include "tests/support/brainvision_files.h"
#include "tests/support/edf_file.h"
#include "tests/support/temp_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <utility>

namespace orvanta::signal {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

class OpenRecordingFrom : public testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& bytes) {
        return folder_.Write(name, bytes);
    }
    static std::string RefusalOf(const std::string& path) {
        try {
            OpenRecording(path);
        } catch (const RecordingError& error) {
            return error.what();
        }
        return {};
    }
    static std::vector<std::string> Labels(const EEGFileInfoType& file) {
        std::vector<std::string> labels;
        for (const EventRecord& event : file.GetEventsManager()->GetEvents()) {
            labels.push_back(event.Label);
        }
        return labels;
    }

    test::TempFolder folder_;
    std::string edf_ = test::PlainEdf().Bytes();
};

TEST_F(OpenRecordingFrom, AnEdfFileUnderAnyName) {
    const auto file = OpenRecording(Write("night.xyz", edf_));
    EXPECT_EQ(file->GetRecording()->Data().format, "EDF");
    EXPECT_EQ(file->GetRecording()->Rate(), 4);
    EXPECT_EQ(file->GetFileNameText(), "night.xyz");
}

TEST_F(OpenRecordingFrom, AnyFileOfABrainVisionRecording) {
    test::WriteBrainVision(folder_, {});
    for (const char* name : {"rec.vhdr", "rec.vmrk", "rec.eeg"}) {
        const auto file = OpenRecording(folder_.Path(name));
        EXPECT_EQ(file->GetRecording()->Data().format, "BrainVision") << name;
        EXPECT_EQ(file->GetRecording()->Rate(), 1000) << name;
    }
}

TEST_F(OpenRecordingFrom, AnUnknownFileNamesTheKnownFormats) {
    EXPECT_THAT(RefusalOf(Write("a.pdf", "%PDF-1.7")),
                AllOf(HasSubstr("a.pdf: it is no recording of a known format"), HasSubstr("EDF+, BDF, BDF+"),
                      HasSubstr("BrainVision")));
}

TEST_F(OpenRecordingFrom, AnEmptyFileSaysSo) {
    EXPECT_THAT(RefusalOf(Write("a.dat", "")), HasSubstr("empty"));
    EXPECT_THAT(RefusalOf(Write("a.edf", "")), HasSubstr("empty"));
}

TEST_F(OpenRecordingFrom, AFolderOrNothingIsRefused) {
    EXPECT_NE(RefusalOf(folder_.Path("")), "");
    EXPECT_NE(RefusalOf(folder_.Path("none.edf")), "");
}

TEST_F(OpenRecordingFrom, ABidsNameHasItsEventsTable) {
    Write("sub-1_task-rest_events.tsv", "onset\tduration\ttrial_type\n1\t0.5\teyes closed\n");
    EXPECT_THAT(Labels(*OpenRecording(Write("sub-1_task-rest_eeg.edf", edf_))), ElementsAre("eyes closed"));
}

TEST_F(OpenRecordingFrom, AnyNameHasItsEventsTable) {
    Write("a.events.tsv", "onset\tduration\ttrial_type\n1\t0\tdot\n");
    Write("b_events.tsv", "onset\tduration\ttrial_type\n1\t0\tunderscore\n");
    EXPECT_THAT(Labels(*OpenRecording(Write("a.edf", edf_))), ElementsAre("dot"));
    EXPECT_THAT(Labels(*OpenRecording(Write("b.edf", edf_))), ElementsAre("underscore"));
}

TEST_F(OpenRecordingFrom, TellsTheEventsOfTheTableFromItsOwn) {
    Write("a_events.tsv", "onset\tduration\ttrial_type\n1\t0\tmine\n");
    test::EdfFile edf = test::PlusEdf();
    edf.signals.back().texts.front() += test::AnnotationBytes("0.5", "", "tone");
    const auto file = OpenRecording(Write("a.edf", edf.Bytes()));
    const auto& events = file->GetEventsManager()->GetEvents();
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].Source, EventSource::Recording);
    EXPECT_EQ(events[0].Line, 0U);
    EXPECT_EQ(events[1].Source, EventSource::Table);
    EXPECT_EQ(events[1].Line, 2U);
}

TEST_F(OpenRecordingFrom, KnowsWhereTheEventsAreKeptAndWhatIsThere) {
    const auto table = [&](const std::string& name) {
        const EventsTableFile file = OpenRecording(Write(name, edf_))->GetRecording()->Data().events_table;
        return std::pair(std::filesystem::path(file.path).filename().string(), file.text.value_or("none"));
    };
    EXPECT_EQ(table("a.edf"), std::pair(std::string("a_events.tsv"), std::string("none")));
    EXPECT_EQ(table("b_eeg.edf"), std::pair(std::string("b_events.tsv"), std::string("none")));
    Write("a.events.tsv", "onset\n1\n");
    EXPECT_EQ(table("a.edf"), std::pair(std::string("a.events.tsv"), std::string("onset\n1\n")));
    Write("a.events.tsv", "nothing of use\n");
    EXPECT_EQ(table("a.edf"), std::pair(std::string("a.events.tsv"), std::string("none")));
}

TEST_F(OpenRecordingFrom, ABadEventsTableIsARepair) {
    Write("a_events.tsv", "nothing of use\n");
    const auto file = OpenRecording(Write("a.edf", edf_));
    EXPECT_THAT(file->GetRecording()->Repairs(),
                Contains(AllOf(HasSubstr("events table left out"), HasSubstr("a_events.tsv"))));
}

TEST_F(OpenRecordingFrom, EventsOutsideTheRecordingAreTold) {
    Write("a_events.tsv", "onset\tduration\n-3\t0\n1e6\t0\n0\t0\n");
    const auto file = OpenRecording(Write("a.edf", edf_));
    EXPECT_THAT(file->GetRecording()->Repairs(),
                Contains("a_events.tsv: 2 events outside the recording, the first at -3 s, kept"));
}

TEST_F(OpenRecordingFrom, ABidsTableIsPreferred) {
    Write("x_events.tsv", "onset\tduration\ttrial_type\n1\t0\tbids\n");
    Write("x_eeg_events.tsv", "onset\tduration\ttrial_type\n1\t0\tother\n");
    EXPECT_THAT(Labels(*OpenRecording(Write("x_eeg.edf", edf_))), ElementsAre("bids"));
}

} // namespace
} // namespace orvanta::signal
