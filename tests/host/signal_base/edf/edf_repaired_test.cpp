// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/signal_base/edf/edf_open.h"

#include <cmath>

namespace orvanta::test {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

EdfFile WithRecords(const std::string& records) {
    EdfFile file = PlainEdf();
    file.records = records;
    return file;
}

EdfFile WithDuration(const std::string& duration) {
    EdfFile file = PlainEdf();
    file.duration = duration;
    return file;
}

} // namespace

TEST(EdfRepaired, AWrongHeaderSize) {
    EdfFile file = PlainEdf();
    file.header_bytes = "1024";
    const signal::RecordingData data = Open(file);
    EXPECT_THAT(data.repairs, ElementsAre("byte 184: the header size is given as \"1024\", 768 bytes used"));
    EXPECT_EQ(StoredValues(data, 0), file.signals[0].values);
}

TEST(EdfRepaired, AnUnknownNumberOfRecords) {
    const signal::RecordingData data = Open(WithRecords("-1"));
    EXPECT_THAT(data.repairs, ElementsAre("byte 236: the number of data records is given as \"-1\", the file "
                                          "has 3, which are used"));
    EXPECT_EQ(data.source->BlockCount(), 3u);
}

TEST(EdfRepaired, TooManyRecords) {
    const signal::RecordingData data = Open(WithRecords("1000"));
    EXPECT_THAT(data.repairs, ElementsAre("byte 236: the number of data records is given as \"1000\", the "
                                          "file has 3, which are used"));
    EXPECT_EQ(data.source->BlockCount(), 3u);
}

TEST(EdfRepaired, TooFewRecords) {
    const signal::RecordingData data = Open(WithRecords("2"));
    EXPECT_THAT(data.repairs, ElementsAre("byte 236: the number of data records is given as \"2\", the file "
                                          "has 3, which are used"));
    EXPECT_EQ(data.source->BlockCount(), 3u);
}

TEST(EdfRepaired, NoRecordsThoughDataAreThere) {
    const signal::RecordingData data = Open(WithRecords("0"));
    EXPECT_THAT(data.repairs, ElementsAre("byte 236: the number of data records is given as \"0\", the file "
                                          "has 3, which are used"));
    EXPECT_EQ(data.segments.at(0).count, 3u);
}

TEST(EdfRepaired, ATextualNumberOfRecords) {
    EXPECT_EQ(Open(WithRecords("some")).source->BlockCount(), 3u);
}

TEST(EdfRepaired, ALastRecordThatIsCut) {
    const std::string bytes = PlainEdf().Bytes();
    const signal::RecordingData data = Open(bytes.substr(0, bytes.size() - 1));
    EXPECT_THAT(data.repairs, ElementsAre("byte 236: the number of data records is given as \"3\", the file "
                                          "has 2, which are used",
                                          "byte 800: the last data record is cut, its 15 bytes left out"));
    EXPECT_EQ(data.source->SampleCount(0), 8u);
}

TEST(EdfRepaired, TrailingBytes) {
    EdfFile file = PlainEdf();
    file.trailer = "trailer";
    const signal::RecordingData data = Open(file);
    EXPECT_THAT(data.repairs, ElementsAre("byte 816: 7 bytes behind the last data record left out"));
    EXPECT_EQ(data.source->BlockCount(), 3u);
}

TEST(EdfRepaired, TrailingBytesThatWouldMakeRecordsInEdfPlus) {
    EdfFile file = PlusEdf();
    file.trailer = std::string(200, 'x');
    const signal::RecordingData data = Open(file);
    EXPECT_THAT(data.repairs, ElementsAre("byte 1264: 200 bytes behind the last data record left out"));
    EXPECT_EQ(data.source->BlockCount(), 3u);
}

TEST(EdfRepaired, UncountedRecordsOfEdfPlus) {
    EdfFile file = PlusEdf();
    file.records = "2";
    EXPECT_EQ(Open(file).source->BlockCount(), 3u);
}

TEST(EdfRepaired, Latin1InLabelsAndUnits) {
    EdfFile file = PlainEdf();
    file.signals[0].label = "F\xFC"
                            "hler";
    file.signals[1].unit = "\xB5V";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.signals[0].label, "F\u00FChler");
    EXPECT_EQ(data.signals[1].unit, "\u00B5V");
    EXPECT_THAT(data.repairs, ElementsAre("channel 1: the label is not plain ASCII, read as Latin-1",
                                          "channel 2: the unit is not plain ASCII, read as Latin-1"));
}

TEST(EdfRepaired, Utf8InLabelsAndUnits) {
    EdfFile file = PlainEdf();
    file.signals[0].label = "F\u00FChler";
    file.signals[0].unit = "\u03BCV";
    file.signals[1].unit = "\u03BCV";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.signals[0].label, "F\u00FChler");
    EXPECT_EQ(data.signals[1].unit, "\u00B5V");
    EXPECT_THAT(data.repairs, ElementsAre("channel 1: the label is not plain ASCII, read as UTF-8",
                                          "channels 1, 2: the unit is not plain ASCII, read as UTF-8"));
}

TEST(EdfRepaired, Latin1InThePatientField) {
    EdfFile file = PlainEdf();
    file.patient = "M\xFCller";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.patient, "M\u00FCller");
    EXPECT_THAT(data.repairs, ElementsAre("byte 8: the patient is not plain ASCII, read as Latin-1"));
}

TEST(EdfRepaired, NulPadding) {
    EdfFile file = PlainEdf();
    file.padding = '\0';
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.signals[0].label, "Fp1");
    EXPECT_EQ(data.patient, "X X X X");
    EXPECT_EQ(data.signals[1].unit, "\u00B5V");
    EXPECT_THAT(data.repairs, ElementsAre("header: NUL bytes in the file's fields taken as blanks",
                                          "channels 1, 2: NUL bytes in the header fields taken as blanks"));
    EXPECT_EQ(StoredValues(data, 0), file.signals[0].values);
}

TEST(EdfRepaired, ControlCharacters) {
    EdfFile file = PlainEdf();
    file.signals[0].label = "A\nB";
    EXPECT_EQ(Open(file).signals[0].label, "A B");
}

TEST(EdfRepaired, DuplicateLabels) {
    EdfFile file = PlainEdf();
    file.signals.resize(3, file.signals[0]);
    file.signals[1].label = "Fp1";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.signals[0].label, "Fp1");
    EXPECT_EQ(data.signals[1].label, "Fp1-2");
    EXPECT_EQ(data.signals[2].label, "Fp1-3");
    EXPECT_THAT(data.repairs, ElementsAre("channels 2, 3: the label is taken, a number was added"));
}

TEST(EdfRepaired, AnEmptyLabel) {
    EdfFile file = PlainEdf();
    file.signals[1].label = "";
    EXPECT_EQ(Open(file).signals[1].label, "Channel 2");
}

TEST(EdfRepaired, ABadDate) {
    for (const char* date : {"31.02.02", "xx.xx.xx", "", "2002-3-2", "00.00.00", "020302"}) {
        EdfFile file = PlainEdf();
        file.date = date;
        const signal::RecordingData data = Open(file);
        EXPECT_FALSE(data.start) << date;
        EXPECT_THAT(data.repairs, ElementsAre("byte 168: the start date \"" + std::string(date) +
                                              "\" is no date, the start is unknown"));
    }
}

TEST(EdfRepaired, ABadTime) {
    for (const char* time : {"24.00.00", "10.60.00", "10.20", "noon"}) {
        EdfFile file = PlainEdf();
        file.time = time;
        const signal::RecordingData data = Open(file);
        EXPECT_FALSE(data.start) << time;
        EXPECT_THAT(data.repairs, ElementsAre("byte 176: the start time \"" + std::string(time) +
                                              "\" is no time, the start is unknown"));
    }
}

TEST(EdfRepaired, ColonsInTimes) {
    EdfFile file = PlainEdf();
    file.time = "10:20:30";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.start, (signal::StartTime{2002, 3, 2, 10, 20, 30, 0}));
    EXPECT_THAT(data.repairs, ElementsAre("byte 176: the start time \"10:20:30\" is written without points"));
}

TEST(EdfRepaired, ADateThatIsNotThatOfTheRecordingField) {
    EdfFile file = PlusEdf();
    file.date = "03.03.02";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.start->day, 2);
    EXPECT_THAT(data.repairs,
                ElementsAre("byte 168: the start date \"03.03.02\" is not that of the recording "
                            "field, which is used"));
}

TEST(EdfRepaired, ADurationThatIsNone) {
    for (const char* duration : {"0", "NaN", "1e-7", "-1", "inf", "", "1e300"}) {
        const signal::RecordingData data = Open(WithDuration(duration));
        EXPECT_EQ(data.block_seconds, 1) << duration;
        EXPECT_EQ(data.signals[0].rate_hz, 4) << duration;
        EXPECT_THAT(data.repairs, ElementsAre("byte 244: the duration of a data record is given as \"" +
                                              std::string(duration) + "\", 1 s assumed"));
    }
}

TEST(EdfRepaired, ADurationThatTheRecordTimesTell) {
    EdfFile file = PlusEdf(2);
    file.duration = "0";
    file.signals[2].texts = {TimeKeeping("0"), TimeKeeping("0.5")};
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.block_seconds, 0.5);
    EXPECT_EQ(data.signals[0].rate_hz, 8);
    EXPECT_EQ(data.segments.size(), 1u);
    EXPECT_THAT(data.repairs, ElementsAre("byte 244: the duration of a data record is given as \"0\", 0.5 s "
                                          "used as the times of the data records say"));
}

TEST(EdfRepaired, DecimalCommas) {
    EdfFile file = PlainEdf();
    file.duration = "0,5";
    file.signals[0].physical_min = "-3276,8";
    file.signals[1].physical_min = "-3276,8";
    const signal::RecordingData data = Open(file);
    EXPECT_EQ(data.signals[0].rate_hz, 8);
    EXPECT_NEAR(data.signals[1].gain, 0.1, 1e-15);
    EXPECT_THAT(data.repairs,
                ElementsAre("byte 244: decimal comma in the duration of a data record read as a point",
                            "channels 1, 2: decimal comma in the physical minimum read as a point"));
}

TEST(EdfRepaired, AnEmptyPhysicalRange) {
    EdfFile file = PlainEdf();
    file.signals[1].physical_max = file.signals[1].physical_min;
    const signal::RecordingData data = Open(file);
    EXPECT_TRUE(data.signals[0].calibrated);
    EXPECT_FALSE(data.signals[1].calibrated);
    EXPECT_EQ(data.signals[1].gain, 1);
    EXPECT_EQ(data.signals[1].offset, 0);
    EXPECT_THAT(data.repairs, ElementsAre("channel 2: physical minimum and maximum are equal, raw values "
                                          "without calibration"));
}

TEST(EdfRepaired, AnEmptyDigitalRange) {
    EdfFile file = PlainEdf();
    file.signals[0].digital_max = file.signals[0].digital_min;
    const signal::RecordingData data = Open(file);
    EXPECT_FALSE(data.signals[0].calibrated);
    EXPECT_EQ(data.signals[0].gain, 1);
    EXPECT_THAT(
        data.repairs,
        ElementsAre("channel 1: digital minimum and maximum are equal, raw values without calibration"));
}

TEST(EdfRepaired, APhysicalRangeThatIsNoNumber) {
    for (const char* text : {"NaN", "", "abc", "1e999"}) {
        EdfFile file = PlainEdf();
        file.signals[0].physical_max = text;
        EXPECT_FALSE(Open(file).signals[0].calibrated) << text;
    }
}

TEST(EdfRepaired, AnInvertedPhysicalRange) {
    EdfFile file = PlainEdf();
    std::swap(file.signals[0].physical_min, file.signals[0].physical_max);
    const signal::RecordingData data = Open(file);
    EXPECT_NEAR(data.signals[0].gain, -0.1, 1e-15);
    EXPECT_NEAR(data.signals[0].offset, -0.1, 1e-12);
    EXPECT_TRUE(data.signals[0].calibrated);
    EXPECT_THAT(data.repairs,
                ElementsAre("channel 1: physical minimum above the maximum, taken as a negative gain"));
}

TEST(EdfRepaired, AnInvertedDigitalRange) {
    EdfFile file = PlainEdf();
    std::swap(file.signals[0].digital_min, file.signals[0].digital_max);
    const signal::RecordingData data = Open(file);
    EXPECT_NEAR(data.signals[0].gain, -0.1, 1e-15);
    EXPECT_THAT(data.repairs,
                ElementsAre("channel 1: digital minimum above the maximum, taken as a negative gain"));
}

TEST(EdfRepaired, SamplesOutsideTheDigitalRange) {
    EdfFile file = PlainEdf();
    file.signals[0].digital_max = "7";
    file.signals[1].digital_min = "-9";
    const signal::RecordingData data = Open(file);
    EXPECT_THAT(data.repairs, ElementsAre("channels 1, 2: 6 samples outside the digital range, kept"));
    EXPECT_EQ(StoredValues(data, 0), file.signals[0].values);
}

TEST(EdfRepaired, BdfSamplesOutsideTheDigitalRange) {
    EdfFile file = PlainBdf();
    file.signals[0].digital_max = "5000000";
    EXPECT_THAT(Open(file).repairs, ElementsAre("channel 1: 1 sample outside the digital range, kept"));
}

TEST(EdfRepaired, SamplesOutsideTheDigitalRangeAreCountedWhereALongFileBegins) {
    EdfFile file = PlainEdf(1);
    file.record_count = 40; // of 256 KiB
    file.signals.resize(1);
    file.signals[0].samples = 131072;
    file.signals[0].values.assign(131072 * 20, 100);
    file.signals[0].digital_max = "99";
    EXPECT_THAT(
        Open(file).repairs,
        ElementsAre("channel 1: 2097152 samples outside the digital range, in the first 16 s, which were "
                    "looked at, kept"));
}

TEST(EdfRepaired, AChannelWithoutSamples) {
    EdfFile file = PlainEdf();
    file.signals[0].samples = 0;
    const signal::RecordingData data = Open(file);
    ASSERT_EQ(data.signals.size(), 1u);
    EXPECT_EQ(data.signals[0].label, "Fp2");
    EXPECT_EQ(StoredValues(data, 0), file.signals[1].values);
    EXPECT_THAT(data.repairs, ElementsAre("channel 1: no samples in a data record, left out"));
}

TEST(EdfRepaired, NoDataRecordsOpens) {
    const signal::RecordingData data = Open(PlainEdf(0));
    EXPECT_EQ(data.source->BlockCount(), 0u);
    EXPECT_THAT(data.segments, IsEmpty());
    EXPECT_EQ(data.signals[0].rate_hz, 4);
    EXPECT_THAT(data.repairs, IsEmpty());
}

} // namespace orvanta::test
