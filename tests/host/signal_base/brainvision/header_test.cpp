// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/signal_base/brainvision/header.h"

#include "host/signal_base/recording_error.h"
#include "tests/support/brainvision_files.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace orvanta::signal::brainvision {
namespace {

using test::BrainVisionFiles;
using Lines = std::vector<std::string>;

struct Parsed {
    Header header;
    Lines repairs;
};

Parsed Parse(const std::string& text) {
    Parsed parsed;
    parsed.header = ParseHeader(text, "folder/sub-01.vhdr", parsed.repairs);
    return parsed;
}

std::string ReasonOf(const std::string& text) {
    try {
        Parse(text);
    } catch (const RecordingError& error) {
        EXPECT_EQ(error.File(), "folder/sub-01.vhdr");
        return error.Reason();
    }
    return "accepted";
}

/// The default header with one piece of text replaced.
std::string With(const std::string& piece, const std::string& replacement) {
    std::string text = HeaderText(BrainVisionFiles());
    const std::size_t at = text.find(piece);
    EXPECT_NE(at, std::string::npos) << piece;
    return text.replace(at, piece.size(), replacement);
}

struct Channel {
    std::string label;
    std::string unit;
    double gain = 1;
    bool calibrated = true;

    bool operator==(const Channel&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Channel& channel) {
        return out << channel.label << ' ' << channel.unit << ' ' << channel.gain << ' '
                   << channel.calibrated;
    }
};

std::vector<Channel> ChannelsOf(const Parsed& parsed) {
    std::vector<Channel> channels;
    for (const SignalHeader& signal : parsed.header.signals) {
        channels.push_back({signal.label, signal.unit, signal.gain, signal.calibrated});
    }
    return channels;
}

Parsed WithChannels(const std::vector<std::string>& channels) {
    BrainVisionFiles files;
    files.channels = channels;
    return Parse(HeaderText(files));
}

TEST(BrainVisionHeader, SaysHowTheDataAreStored) {
    const Parsed parsed = Parse(HeaderText(BrainVisionFiles()));
    EXPECT_EQ(parsed.header.data_name, "rec.eeg");
    EXPECT_EQ(parsed.header.marker_name, "rec.vmrk");
    EXPECT_EQ(parsed.header.orientation, Orientation::Multiplexed);
    EXPECT_EQ(parsed.header.format, SampleFormat::Int16);
    EXPECT_EQ(parsed.header.points, std::nullopt);
    EXPECT_EQ(parsed.header.rate_hz, 1000);
    EXPECT_EQ(parsed.header.signals.at(1).rate_hz, 1000);
    EXPECT_TRUE(parsed.repairs.empty());
}

TEST(BrainVisionHeader, KnowsVectorizedFloats) {
    BrainVisionFiles files;
    files.vectorized = true;
    files.float32 = true;
    files.common_infos = "DataPoints=4\n";
    const Parsed parsed = Parse(HeaderText(files));
    EXPECT_EQ(parsed.header.orientation, Orientation::Vectorized);
    EXPECT_EQ(parsed.header.format, SampleFormat::Float32);
    EXPECT_EQ(parsed.header.points, 4u);
}

TEST(BrainVisionHeader, ReadsChannels) {
    EXPECT_EQ(ChannelsOf(WithChannels({"Fp1,,0.5,µV", "HEOG,REF,0.1,mV,further"})),
              (std::vector<Channel>{{"Fp1", "µV", 0.5}, {"HEOG", "mV", 0.1}}));
}

TEST(BrainVisionHeader, TakesMissingResolutionAsOneAndMissingUnitAsMicrovolt) {
    const Parsed parsed = WithChannels({"Fp1", "Fp2,,", "F3,,,", "F4,,2", "C3,,0,5"});
    EXPECT_EQ(
        ChannelsOf(parsed),
        (std::vector<Channel>{
            {"Fp1", "µV", 1}, {"Fp2", "µV", 1}, {"F3", "µV", 1}, {"F4", "µV", 2}, {"C3", "5", 1, false}}));
}

TEST(BrainVisionHeader, TurnsEscapedCommasBack) {
    EXPECT_EQ(ChannelsOf(WithChannels({"a\\1b,,1,µV"})).at(0).label, "a,b");
}

TEST(BrainVisionHeader, LeavesValuesRawWithoutAUsableResolution) {
    const Parsed parsed = WithChannels({"Fp1,,zero,µV", "Fp2,,0,µV", "F3,,nan,µV"});
    EXPECT_EQ(
        ChannelsOf(parsed),
        (std::vector<Channel>{{"Fp1", "µV", 1, false}, {"Fp2", "µV", 1, false}, {"F3", "µV", 1, false}}));
    EXPECT_EQ(parsed.repairs, (Lines{"channel 1: resolution \"zero\" is no usable number, values left raw",
                                     "channel 2: resolution \"0\" is no usable number, values left raw",
                                     "channel 3: resolution \"nan\" is no usable number, values left raw"}));
}

TEST(BrainVisionHeader, NamesChannelsThatHaveNone) {
    const Parsed parsed = Parse(With("NumberOfChannels=2", "NumberOfChannels=3"));
    EXPECT_EQ(ChannelsOf(parsed).at(2), (Channel{"Ch3", "", 1, false}));
    EXPECT_EQ(parsed.repairs, (Lines{"channel 3: not described, called Ch3, values left raw"}));
    EXPECT_EQ(WithChannels({",,1,µV"}).repairs, (Lines{"channel 1: has no name, called Ch1"}));
}

TEST(BrainVisionHeader, TellsChannelsOfOneNameApart) {
    const Parsed parsed = WithChannels({"Cz,,1,µV", "Cz,,1,µV"});
    EXPECT_EQ(ChannelsOf(parsed).at(1).label, "Cz-2");
    EXPECT_EQ(parsed.repairs, (Lines{"channel 2: shares its name with another, called \"Cz-2\""}));
}

TEST(BrainVisionHeader, KeepsTheFirstOfTwoDescriptions) {
    const Parsed parsed = Parse(HeaderText(BrainVisionFiles()) + "ch2=Oz,,1,V\n");
    EXPECT_EQ(ChannelsOf(parsed).at(1), (Channel{"Fp2", "µV", 0.5}));
    EXPECT_EQ(parsed.repairs, (Lines{"channel 2: described again in line 18, the first description holds"}));
}

TEST(BrainVisionHeader, AllowsAnyCaseBlanksAndLineEnds) {
    const Parsed parsed =
        Parse("BRAINVISION data exchange HEADER file\r\n; a comment = 1\r\n[ common infos ]\r\n"
              " datafile = x.dat \r\nNUMBEROFCHANNELS=1\r\nSampling Interval = 2000.0\r\n"
              "dataorientation = multiplexed\r\n[BINARYINFOS]\r\nbinaryformat=int_16\r\n"
              "[channel infos]\r\nCH1 = Cz , , 0.1 , uV \r\n[Comment]\r\nCh1=Pz\r\n");
    EXPECT_EQ(parsed.header.data_name, "x.dat");
    EXPECT_EQ(parsed.header.rate_hz, 500);
    EXPECT_EQ(ChannelsOf(parsed), (std::vector<Channel>{{"Cz", "uV", 0.1}}));
    EXPECT_TRUE(parsed.repairs.empty());
}

TEST(BrainVisionHeader, ReadsLatin1WithoutARepairUnlessItSaysUtf8) {
    std::string text = With("Fp1,,0.5,µV", "Fp1,,0.5,\xB5V");
    text.replace(text.find("Fp2,,0.5,µV"), 12, "Fp2,,0.5,\xB5V");
    const Parsed wrong = Parse(text);
    EXPECT_EQ(ChannelsOf(wrong).at(0).unit, "µV");
    EXPECT_EQ(wrong.repairs, (Lines{"the header is not UTF-8 although it says so"}));
    text.replace(text.find("UTF-8"), 5, "ANSI");
    const Parsed right = Parse(text);
    EXPECT_EQ(ChannelsOf(right).at(1).unit, "µV");
    EXPECT_TRUE(right.repairs.empty());
}

TEST(BrainVisionHeader, PutsItsOwnStemInFileNames) {
    EXPECT_EQ(Parse(With("DataFile=rec.eeg", "DataFile=$b.eeg")).header.data_name, "sub-01.eeg");
    EXPECT_EQ(Parse(With("MarkerFile=rec.vmrk", "MarkerFile=$b_$b.vmrk")).header.marker_name,
              "sub-01_sub-01.vmrk");
}

TEST(BrainVisionHeader, LooksForFilesOnlyBesideItself) {
    const Parsed unixPath = Parse(With("DataFile=rec.eeg", "DataFile=../../etc/passwd"));
    EXPECT_EQ(unixPath.header.data_name, "passwd");
    EXPECT_EQ(unixPath.repairs,
              (Lines{"DataFile names a folder, looked for \"passwd\" beside the header instead"}));
    EXPECT_EQ(Parse(With("DataFile=rec.eeg", "DataFile=C:\\data\\a.eeg")).header.data_name, "a.eeg");
    EXPECT_EQ(Parse(With("DataFile=rec.eeg", "DataFile=..")).header.data_name, "");
}

TEST(BrainVisionHeader, TakesAMissingOrientationAsMultiplexed) {
    const Parsed parsed = Parse(With("DataOrientation=MULTIPLEXED\n", ""));
    EXPECT_EQ(parsed.header.orientation, Orientation::Multiplexed);
    EXPECT_EQ(parsed.repairs, (Lines{"DataOrientation is missing, data taken as multiplexed"}));
}

TEST(BrainVisionHeader, RefusesWhatIsNone) {
    EXPECT_EQ(ReasonOf(""), "is empty");
    EXPECT_EQ(ReasonOf(std::string(100, '\0')), "is empty");
    EXPECT_EQ(ReasonOf("0       patient"), "line 1: is no BrainVision header");
    EXPECT_EQ(ReasonOf("Brain Vision Data Exchange Marker File, Version 1.0\n"),
              "line 1: is no BrainVision header");
}

TEST(BrainVisionHeader, RefusesImpossibleChannelCounts) {
    for (const std::string count : {"0", "-1", "two", "1.5", "4097", "99999999999999999999"}) {
        EXPECT_EQ(ReasonOf(With("NumberOfChannels=2", "NumberOfChannels=" + count)),
                  "line 9: NumberOfChannels \"" + count + "\" is no number of channels");
    }
    EXPECT_EQ(ReasonOf(With("NumberOfChannels=2", "")), "NumberOfChannels is missing");
}

TEST(BrainVisionHeader, RefusesImpossibleSamplingIntervals) {
    for (const std::string interval : {"0", "-1", "nan", "inf", "1e-30", "1e30", "often"}) {
        EXPECT_EQ(ReasonOf(With("SamplingInterval=1000", "SamplingInterval=" + interval)),
                  "line 10: SamplingInterval \"" + interval + "\" is no sampling interval");
    }
    EXPECT_EQ(ReasonOf(With("SamplingInterval=1000", "SamplingInterval=")), "SamplingInterval is missing");
}

TEST(BrainVisionHeader, RepairsADecimalCommaInTheSamplingInterval) {
    const Parsed parsed = Parse(With("SamplingInterval=1000", "SamplingInterval=3906,25"));
    EXPECT_EQ(parsed.header.rate_hz, 256);
    EXPECT_EQ(parsed.repairs, (Lines{"decimal comma in SamplingInterval \"3906,25\" read as a point"}));
}

TEST(BrainVisionHeader, RefusesDataItCannotRead) {
    EXPECT_EQ(ReasonOf(With("INT_16", "INT_32")), "line 13: BinaryFormat \"INT_32\" is not supported");
    EXPECT_EQ(ReasonOf(With("BinaryFormat=INT_16", "")), "BinaryFormat is missing");
    EXPECT_EQ(ReasonOf(With("BINARY", "ASCII")), "line 7: DataFormat \"ASCII\" is not supported");
    EXPECT_EQ(ReasonOf(With("MULTIPLEXED", "SIDEWAYS")),
              "line 8: DataOrientation \"SIDEWAYS\" is not supported");
    EXPECT_EQ(ReasonOf(With("DataFormat=BINARY", "DataType=FREQUENCYDOMAIN")),
              "line 7: DataType \"FREQUENCYDOMAIN\" is not supported");
    EXPECT_EQ(ReasonOf(With("INT_16", "INT_16\nUseBigEndianOrder=YES")),
              "line 14: UseBigEndianOrder \"YES\" is not supported");
}

} // namespace
} // namespace orvanta::signal::brainvision
