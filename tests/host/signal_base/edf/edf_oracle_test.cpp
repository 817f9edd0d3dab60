// SPDX-License-Identifier: GPL-3.0-or-later
// Against libedf: equal samples, ranges, times and annotations on files that both open.
#include "host/signal_base/edf/edf_writer.h"
#include "tests/host/signal_base/edf/edf_open.h"

#include <edflib.h>

#include <random>

namespace orvanta::test {

namespace {

class EdfOracle : public testing::Test {
protected:
    ~EdfOracle() override {
        if (oracle_.handle >= 0) {
            edfclose_file(oracle_.handle);
        }
    }

    void OpenBoth(const std::string& path) {
        ASSERT_EQ(edfopen_file_readonly(path.c_str(), &oracle_, EDFLIB_READ_ALL_ANNOTATIONS), 0)
            << oracle_.filetype;
        data_ = signal::ReadEdf(path);
    }

    void OpenBoth(const EdfFile& file) { OpenBoth(folder_.Write("made.edf", file.Bytes())); }

    std::vector<std::int32_t> OracleValues(int signal) const {
        std::vector<int> values(static_cast<std::size_t>(oracle_.signalparam[signal].smp_in_file));
        const int count = static_cast<int>(values.size());
        EXPECT_EQ(edfread_digital_samples(oracle_.handle, signal, count, values.data()), count);
        return {values.begin(), values.end()};
    }

    /// The oracle numbers the signals without those for annotations.
    void ExpectEqualSignals() const {
        int other = 0;
        for (std::size_t i = 0; i < data_.signals.size(); ++i) {
            const signal::SignalHeader& header = data_.signals[i];
            if (header.annotations) {
                continue;
            }
            ASSERT_LT(other, oracle_.edfsignals);
            EXPECT_EQ(StoredValues(data_, i), OracleValues(other)) << header.label;
            const edf_param_struct& parameters = oracle_.signalparam[other];
            EXPECT_NEAR(header.gain * parameters.dig_min + header.offset, parameters.phys_min, 1e-9);
            EXPECT_NEAR(header.gain * parameters.dig_max + header.offset, parameters.phys_max, 1e-9);
            ++other;
        }
        EXPECT_EQ(other, oracle_.edfsignals);
        EXPECT_EQ(data_.block_seconds, static_cast<double>(oracle_.datarecord_duration) / 1e7);
    }

    void ExpectEqualAnnotations() const {
        ASSERT_EQ(static_cast<long long>(data_.annotations.size()), oracle_.annotations_in_file);
        for (std::size_t i = 0; i < data_.annotations.size(); ++i) {
            edf_annotation_struct other{};
            ASSERT_EQ(edf_get_annotation(oracle_.handle, static_cast<int>(i), &other), 0);
            EXPECT_NEAR(data_.annotations[i].onset_s, static_cast<double>(other.onset) / 1e7, 1e-6);
            EXPECT_EQ(data_.annotations[i].text, other.annotation);
            EXPECT_EQ(data_.annotations[i].duration_s.has_value(), other.duration_l >= 0);
        }
    }

    TempFolder folder_;
    edf_hdr_struct oracle_ = [] {
        edf_hdr_struct header{};
        header.handle = -1;
        return header;
    }();
    signal::RecordingData data_;
};

/// Five signals of different rates and ranges full of random values.
EdfFile RandomFile(bool bdf) {
    std::mt19937 random(17);
    EdfFile file;
    file.bdf = bdf;
    file.reserved = bdf ? "24BIT" : "";
    file.record_count = 7;
    file.duration = "0.5";
    const int bits = bdf ? 24 : 16;
    for (const std::size_t samples : {1u, 5u, 64u, 333u, 2u}) {
        EdfFileSignal signal;
        signal.label = "S" + std::to_string(samples);
        signal.physical_min = "-187.5";
        signal.physical_max = std::to_string(100 + samples);
        signal.digital_min = std::to_string(-(1 << (bits - 1)));
        signal.digital_max = std::to_string((1 << (bits - 1)) - 1);
        signal.samples = samples;
        for (std::size_t i = 0; i < samples * file.record_count; ++i) {
            signal.values.push_back(static_cast<std::int32_t>(random()) >> (32 - bits));
        }
        file.signals.push_back(signal);
    }
    return file;
}

/// Adds an annotation signal between the others, with the time of every record half a second apart.
EdfFile WithAnnotations(EdfFile file, const std::string& first) {
    std::vector<std::string> texts;
    for (std::size_t record = 0; record < file.record_count; ++record) {
        texts.push_back(TimeKeeping(std::to_string(record / 2) + (record % 2 == 0 ? ".0" : ".5")));
    }
    texts[1] += first;
    texts[4] += AnnotationBytes("2.125", "", "tone \u00FC") + AnnotationBytes("2.25", "0.75", "state");
    file.reserved = file.bdf ? "BDF+C" : "EDF+C";
    file.patient = "X X X X";
    file.signals.insert(file.signals.begin() + 2, AnnotationSignal(texts, 60, file.bdf));
    return file;
}

} // namespace

TEST_F(EdfOracle, AgreesOnEdf) {
    OpenBoth(RandomFile(false));
    ExpectEqualSignals();
}

TEST_F(EdfOracle, AgreesOnBdf) {
    OpenBoth(RandomFile(true));
    ExpectEqualSignals();
}

TEST_F(EdfOracle, AgreesOnEdfPlus) {
    OpenBoth(WithAnnotations(RandomFile(false), AnnotationBytes("0.75", "2", "first")));
    ExpectEqualSignals();
    ExpectEqualAnnotations();
}

TEST_F(EdfOracle, AgreesOnBdfPlus) {
    OpenBoth(WithAnnotations(RandomFile(true), AnnotationBytes("0.75", "2", "first")));
    ExpectEqualSignals();
    ExpectEqualAnnotations();
}

TEST_F(EdfOracle, OpensWhatTheWriterWrites) {
    signal::EdfWriterHeader header;
    header.record_count = 3;
    header.start = signal::StartTime{2011, 12, 13, 14, 15, 16, 0};
    header.signals.resize(2);
    header.signals[0] = {"Fp1", "uV", 5, -500, 500, "AgCl", "HP:0.1Hz"};
    header.signals[1] = {"Cz", "uV", 2, -1000, 1000, "", ""};
    signal::EdfWriter writer(folder_.Path("written.edf"), header);
    for (int record = 0; record < 3; ++record) {
        writer.WriteRecord(std::vector<std::vector<double>>{{1, -2, 3, -4, 5.5}, {1000.0 * record, -7}},
                           {{record + 0.25, std::nullopt, "tone"}, {record + 0.5, 0.4, "bad blink"}});
    }
    writer.Finish();
    OpenBoth(folder_.Path("written.edf"));
    ExpectEqualSignals();
    ExpectEqualAnnotations();
    EXPECT_EQ(oracle_.startdate_year, 2011);
    EXPECT_EQ(oracle_.startdate_month, 12);
    EXPECT_EQ(oracle_.startdate_day, 13);
    EXPECT_EQ(oracle_.starttime_second, 16);
}

TEST_F(EdfOracle, AgreesOnAStartBetweenSeconds) {
    EdfFile file = RandomFile(false);
    file.record_count = 1;
    file.reserved = "EDF+C";
    file.signals.push_back(AnnotationSignal({TimeKeeping("0.25") + AnnotationBytes("0.5", "", "tone")}));
    OpenBoth(file);
    EXPECT_EQ(oracle_.starttime_subsecond, 2'500'000);
    EXPECT_EQ(data_.start->microsecond, 250'000);
    ExpectEqualAnnotations();
}

} // namespace orvanta::test
