// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/host/signal_base/edf/edf_open.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvanta::test {

namespace {

EdfFile WithChannels(const std::string& channels) {
    EdfFile file = PlainEdf();
    file.channels = channels;
    return file;
}

EdfFile WithSamples(const std::string& samples) {
    EdfFile file = PlainEdf();
    file.signals[1].samples_text = samples;
    return file;
}

} // namespace

TEST(EdfRefused, AnEmptyFile) {
    EXPECT_EQ(Refusal(""), "byte 0: the file is empty");
}

TEST(EdfRefused, AFileShorterThanAHeader) {
    EXPECT_EQ(Refusal(PlainEdf().Bytes().substr(0, 255)),
              "byte 255: the file is shorter than a header of 256 bytes");
}

TEST(EdfRefused, AWrongMagic) {
    EdfFile file = PlainEdf();
    for (const char* version : {"1", "00000000", "BIOSEMI",
                                "\xFF"
                                "BIOSEMJ",
                                " 0", "GDF 1.25"}) {
        file.version = version;
        EXPECT_EQ(Refusal(file), "byte 0: does not begin like an EDF or BDF file") << version;
    }
}

TEST(EdfRefused, AHeaderThatIsCut) {
    EXPECT_EQ(Refusal(PlainEdf().Bytes().substr(0, 767)),
              "byte 767: the header is cut, \"2\" channels need more bytes than the file has");
}

TEST(EdfRefused, NoChannels) {
    EXPECT_EQ(Refusal(WithChannels("0")), "byte 252: the number of channels is \"0\"");
}

TEST(EdfRefused, ANegativeNumberOfChannels) {
    EXPECT_EQ(Refusal(WithChannels("-1")), "byte 252: the number of channels is \"-1\"");
}

TEST(EdfRefused, ATextualNumberOfChannels) {
    EXPECT_EQ(Refusal(WithChannels("two")), "byte 252: the number of channels is \"two\"");
    EXPECT_EQ(Refusal(WithChannels("")), "byte 252: the number of channels is \"\"");
    EXPECT_EQ(Refusal(WithChannels("2.5")), "byte 252: the number of channels is \"2.5\"");
}

TEST(EdfRefused, AnImpossibleNumberOfChannels) {
    EXPECT_EQ(Refusal(WithChannels("9999")),
              "byte 816: the header is cut, \"9999\" channels need more bytes than the file has");
    EXPECT_EQ(Refusal(WithChannels("9e99")),
              "byte 816: the header is cut, \"9e99\" channels need more bytes than the file has");
}

TEST(EdfRefused, NegativeSamplesPerRecord) {
    EXPECT_EQ(Refusal(WithSamples("-4")), "channel 2: samples per data record are \"-4\"");
}

TEST(EdfRefused, TextualSamplesPerRecord) {
    EXPECT_EQ(Refusal(WithSamples("many")), "channel 2: samples per data record are \"many\"");
    EXPECT_EQ(Refusal(WithSamples("2.5")), "channel 2: samples per data record are \"2.5\"");
}

TEST(EdfRefused, NoSamplesInAnyChannel) {
    EdfFile file = WithSamples("0");
    file.signals[0].samples_text = "0";
    EXPECT_EQ(Refusal(file), "channels 1 to 2: no channel has samples");
}

TEST(EdfRefused, AbsurdSamplesPerRecord) {
    EdfFile file = PlainBdf();
    file.signals[1].samples_text = "99999999";
    EXPECT_EQ(Refusal(file), "channel 2: a data record is larger than the 256 MiB that are possible");
    EXPECT_EQ(Refusal(WithSamples("9e300")),
              "channel 2: \"9e300\" samples make a data record larger than the 256 MiB that are possible");
}

TEST(EdfRefused, ARecordOver256MebibytesInAll) {
    EdfFile file = PlainEdf();
    file.signals[0].samples_text = "67108865"; // 128 MiB and a sample each
    file.signals[1].samples_text = "67108864";
    EXPECT_EQ(Refusal(file), "channel 2: a data record is larger than the 256 MiB that are possible");
    file.signals[0].samples_text = "67108864";
    EXPECT_EQ(Open(file).signals.size(), 2u);
}

TEST(EdfRefused, AFolder) {
    const TempFolder folder;
    EXPECT_THROW(signal::ReadEdf(folder.Path(".")), signal::RecordingError);
}

TEST(EdfRefused, AFifoWithoutWaitingForAWriter) {
    const TempFolder folder;
    const std::string path = folder.Path("pipe.edf");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_THROW(signal::ReadEdf(path), signal::RecordingError);
}

TEST(EdfRefused, ADevice) {
    EXPECT_THROW(signal::ReadEdf("/dev/zero"), signal::RecordingError);
}

TEST(EdfRefused, AMissingFile) {
    const TempFolder folder;
    EXPECT_THROW(signal::ReadEdf(folder.Path("none.edf")), signal::RecordingError);
}

TEST(EdfChanged, AFileThatShrinksWhileOpenFailsTheRead) {
    const TempFolder folder;
    const std::string bytes = PlainEdf().Bytes();
    const std::string path = folder.Write("made.edf", bytes);
    const signal::RecordingData data = signal::ReadEdf(path);
    ASSERT_EQ(truncate(path.c_str(), static_cast<off_t>(bytes.size() - 1)), 0);
    std::vector<std::byte> block(data.source->BlockBytes());
    EXPECT_THROW(data.source->Read(2, 1, block.data()), signal::RecordingError);
}

TEST(EdfChanged, AFileThatIsWrittenWhileOpenFailsTheRead) {
    const TempFolder folder;
    const std::string path = folder.Write("made.edf", PlainEdf().Bytes());
    const signal::RecordingData data = signal::ReadEdf(path);
    const timespec times[2] = {{0, UTIME_OMIT}, {12345, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    std::vector<std::byte> block(data.source->BlockBytes());
    EXPECT_THROW(data.source->Read(0, 1, block.data()), signal::RecordingError);
}

TEST(EdfChanged, RecordsBeyondTheLastAreNoRead) {
    const signal::RecordingData data = Open(PlainEdf());
    std::vector<std::byte> blocks(4 * data.source->BlockBytes());
    EXPECT_THROW(data.source->Read(0, 4, blocks.data()), signal::RecordingError);
    EXPECT_THROW(data.source->Read(4, 0, blocks.data()), signal::RecordingError);
    EXPECT_THROW(data.source->Read(~std::uint64_t{0}, 2, blocks.data()), signal::RecordingError);
}

} // namespace orvanta::test
