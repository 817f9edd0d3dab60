// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/signal_base/edf/edf_open.h"

namespace orvanta::test {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

EdfFile WithLists(std::vector<std::string> texts, std::size_t samples = 32) {
    EdfFile file = PlainEdf(texts.size());
    file.reserved = "EDF+C";
    file.signals.push_back(AnnotationSignal(std::move(texts), samples));
    return file;
}

EdfFile WithTimes(const std::vector<std::string>& onsets, const std::string& format = "EDF+D") {
    std::vector<std::string> texts;
    for (const std::string& onset : onsets) {
        texts.push_back(TimeKeeping(onset));
    }
    EdfFile file = WithLists(texts);
    file.reserved = format;
    return file;
}

struct Stretch {
    std::uint64_t first, count;
    double start_s;
    bool operator==(const Stretch&) const = default;
};

std::vector<Stretch> Stretches(const signal::RecordingData& data) {
    std::vector<Stretch> stretches;
    for (const signal::BlockSegment& segment : data.segments) {
        stretches.push_back({segment.first_block, segment.count, segment.start_s});
    }
    return stretches;
}

} // namespace

TEST(EdfAnnotations, HaveOnsetDurationAndText) {
    const signal::RecordingData data =
        Open(WithLists({TimeKeeping("0") + AnnotationBytes("0.25", "", "tone"),
                        TimeKeeping("1") + AnnotationBytes("1", "0.5", "eyes \u00E9")}));
    ASSERT_EQ(data.annotations.size(), 2u);
    EXPECT_EQ(data.annotations[0].onset_s, 0.25);
    EXPECT_FALSE(data.annotations[0].duration_s);
    EXPECT_EQ(data.annotations[0].text, "tone");
    EXPECT_EQ(data.annotations[1].onset_s, 1);
    EXPECT_EQ(data.annotations[1].duration_s, 0.5);
    EXPECT_EQ(data.annotations[1].text, "eyes \u00E9");
    EXPECT_THAT(data.repairs, IsEmpty());
}

TEST(EdfAnnotations, MayShareATime) {
    const signal::RecordingData data = Open(WithLists({TimeKeeping("0") + "+0.5\x14one\x14two\x14"}));
    ASSERT_EQ(data.annotations.size(), 2u);
    EXPECT_EQ(data.annotations[1].text, "two");
    EXPECT_EQ(data.annotations[1].onset_s, 0.5);
}

TEST(EdfAnnotations, MayShareTheListThatKeepsTheTime) {
    const signal::RecordingData data = Open(WithLists({"+0\x14\x14start\x14"}));
    ASSERT_EQ(data.annotations.size(), 1u);
    EXPECT_EQ(data.annotations[0].text, "start");
}

TEST(EdfAnnotations, OfSeveralSignalsComeInOrderOfTime) {
    EdfFile file = WithLists({TimeKeeping("0") + AnnotationBytes("0.75", "", "b")});
    file.signals.push_back(AnnotationSignal({AnnotationBytes("0.5", "", "a")}));
    const signal::RecordingData data = Open(file);
    ASSERT_EQ(data.annotations.size(), 2u);
    EXPECT_EQ(data.annotations[0].text, "a");
    EXPECT_EQ(data.annotations[1].text, "b");
    EXPECT_NE(data.signals[2].label, data.signals[3].label);
    EXPECT_THAT(data.repairs, IsEmpty());
}

TEST(EdfAnnotations, OfBdfPlusAreReadFrom24BitSamples) {
    EdfFile file = PlainBdf(1);
    file.reserved = "BDF+C";
    file.signals.push_back(
        AnnotationSignal({TimeKeeping("0") + AnnotationBytes("0.5", "", "beep")}, 10, true));
    const signal::RecordingData data = Open(file);
    ASSERT_EQ(data.annotations.size(), 1u);
    EXPECT_EQ(data.annotations[0].text, "beep");
}

TEST(EdfAnnotations, CountFromTheFirstSample) {
    const signal::RecordingData data =
        Open(WithLists({TimeKeeping("0.25") + AnnotationBytes("0.75", "", "tone"), TimeKeeping("1.25")}));
    EXPECT_EQ(data.annotations.at(0).onset_s, 0.5);
    EXPECT_EQ(data.start, (signal::StartTime{2002, 3, 2, 10, 20, 30, 250000}));
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 2, 0}));
}

TEST(EdfAnnotations, AreReadWhereRecordsAreLarge) {
    EdfFile file = WithLists({TimeKeeping("0"), TimeKeeping("1") + AnnotationBytes("1.5", "", "late")});
    file.signals[0].samples = 20000; // only the annotation bytes of such records are read
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.annotations.at(0).text, "late");
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 2, 0}));
}

TEST(EdfAnnotations, OfAFileWithoutOtherSignalsAreRead) {
    EdfFile file;
    file.reserved = "EDF+C";
    file.duration = "0";
    file.record_count = 1;
    file.signals = {AnnotationSignal({TimeKeeping("0") + AnnotationBytes("100", "5", "far")})};
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.annotations.at(0).text, "far");
    EXPECT_THAT(data.segments, IsEmpty());
    EXPECT_GT(data.signals[0].rate_hz, 0);
}

TEST(EdfGaps, OfADiscontinuousFileBreakIt) {
    const signal::RecordingData data = Open(WithTimes({"0", "1", "5.5", "6.5", "7.5", "20"}));
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 2, 0}, Stretch{2, 3, 5.5}, Stretch{5, 1, 20}));
    EXPECT_THAT(data.repairs,
                ElementsAre("annotations: 2 breaks with 15 s missing in all, no epoch crosses them"));
}

TEST(EdfGaps, OfAContiguousDiscontinuousFileAreNone) {
    const signal::RecordingData data = Open(WithTimes({"0", "1", "2"}));
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 3, 0}));
    EXPECT_THAT(data.repairs, IsEmpty());
}

TEST(EdfGaps, InAContinuousFileBreakItAndAreListed) {
    const signal::RecordingData data = Open(WithTimes({"0", "1", "3"}, "EDF+C"));
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 2, 0}, Stretch{2, 1, 3}));
    EXPECT_THAT(data.repairs, ElementsAre("annotations: 1 break with 1 s missing in all, though the file is "
                                          "marked as continuous, no epoch crosses them"));
}

TEST(EdfGaps, ShorterThanHalfASampleAreRounding) {
    EXPECT_EQ(Open(WithTimes({"0", "1.1", "2.2"})).segments.size(), 1u);
    EXPECT_EQ(Open(WithTimes({"0", "1.2", "2.2"})).segments.size(), 2u);
}

TEST(EdfGaps, WhereTimeGoesBackPlaceTheRestBehind) {
    const signal::RecordingData data = Open(WithTimes({"10", "11", "5", "6"}));
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 2, 0}, Stretch{2, 2, 2}));
    EXPECT_THAT(
        data.repairs,
        ElementsAre("annotations: records overlap, 1 data record placed behind the one before, no epoch "
                    "crosses from one to the other"));
}

TEST(EdfAnnotations, WithADecimalCommaAreTold) {
    const signal::RecordingData data = Open(WithTimes({"0", "1,5"}));
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 1, 0}, Stretch{1, 1, 1.5}));
    EXPECT_THAT(data.repairs,
                testing::Contains("data record 2: 1 annotation list with a decimal comma, read as a point"));
}

TEST(EdfGaps, OfADiscontinuousFileWithoutTimesAreUnknown) {
    EdfFile file = PlainEdf();
    file.reserved = "EDF+D";
    const signal::RecordingData data = Open(file);
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 3, 0}));
    EXPECT_EQ(data.repairs.size(), 1u);
}

TEST(EdfRepaired, ARecordWithoutATime) {
    const signal::RecordingData data = Open(WithLists({TimeKeeping("0"), "", TimeKeeping("2")}));
    EXPECT_THAT(Stretches(data), ElementsAre(Stretch{0, 3, 0}));
    EXPECT_THAT(data.repairs,
                ElementsAre("annotations: 1 data record without a time, taken to follow the one "
                            "before"));
}

TEST(EdfRepaired, AnnotationsInAFileThatIsNotMarkedAsPlus) {
    EdfFile file = WithLists({TimeKeeping("0") + AnnotationBytes("0.5", "", "tone")});
    file.reserved = "";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.format, "EDF+C");
    EXPECT_EQ(data.annotations.size(), 1u);
    EXPECT_EQ(data.repairs.size(), 1u);
}

TEST(EdfRepaired, AnUnterminatedAnnotationList) {
    const signal::RecordingData data = Open(WithLists({TimeKeeping("0") + "+0.5\x14no end"}));
    EXPECT_EQ(data.annotations.at(0).text, "no end");
    EXPECT_THAT(data.repairs, ElementsAre("data record 1: 1 annotation list without an end mark, ended where "
                                          "the next one begins"));
}

TEST(EdfRepaired, AnAnnotationListThatFillsItsSignal) {
    const signal::RecordingData data =
        Open(WithLists({TimeKeeping("0") + "+0.5\x14" + std::string(100, 'x')}));
    EXPECT_EQ(data.annotations.at(0).text, std::string(64 - 5 - 5, 'x'));
    EXPECT_EQ(data.repairs.size(), 1u);
}

TEST(EdfRepaired, InvalidUtf8InAnnotations) {
    const signal::RecordingData data =
        Open(WithLists({TimeKeeping("0") + AnnotationBytes("0.5", "", "M\xFCll") +
                        AnnotationBytes("0.6", "", "\u00E9\xFF")}));
    EXPECT_EQ(data.annotations.at(0).text, "M\u00FCll");
    EXPECT_EQ(data.annotations.at(1).text, "\u00E9\uFFFD");
    EXPECT_THAT(data.repairs, ElementsAre("data record 1 and others: 2 annotation texts not in UTF-8, "
                                          "read as Latin-1 or with the bad bytes marked"));
}

TEST(EdfRepaired, OnsetsOutsideTheRecordingAreKept) {
    const signal::RecordingData data = Open(WithLists({TimeKeeping("0") +
                                                       std::string("-1\x14"
                                                                   "before\x14\0",
                                                                   11) +
                                                       AnnotationBytes("1.5", "", "after")}));
    ASSERT_EQ(data.annotations.size(), 2u);
    EXPECT_EQ(data.annotations[0].onset_s, -1);
    EXPECT_EQ(data.annotations[1].onset_s, 1.5);
    EXPECT_THAT(data.repairs, ElementsAre("annotations: 2 outside the recording, the first at -1 s, kept"));
}

TEST(EdfRepaired, AnnotationsWithoutATimeAreLeftOut) {
    const signal::RecordingData data = Open(
        WithLists({TimeKeeping("0") + AnnotationBytes("soon", "", "a") + AnnotationBytes("1e12", "", "b")}));
    EXPECT_THAT(data.annotations, IsEmpty());
    EXPECT_THAT(data.repairs,
                ElementsAre("data record 1 and others: 2 annotation lists without a time, left out"));
}

TEST(EdfRepaired, ADurationThatIsNoTimeIsLeftOut) {
    const signal::RecordingData data =
        Open(WithLists({TimeKeeping("0") + AnnotationBytes("0.5", "-2", "a")}));
    EXPECT_FALSE(data.annotations.at(0).duration_s);
    EXPECT_THAT(data.repairs, ElementsAre("data record 1: 1 annotation duration that cannot be, left out"));
}

} // namespace orvanta::test
