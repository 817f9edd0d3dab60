// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/spect_macro_result.h"
#include "tests/host/spectral_data/results/analysis_fixture.h"
#include "tests/support/comma_numerals.h"
#include "tests/support/temp_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

namespace {

using namespace orvanta;

class ResultTexts : public testing::Test {
protected:
    std::string ProcData(std::size_t size = 128) const {
        std::array<char, 128> buffer;
        buffer.fill('#');
        result.GetProcDataString(buffer.data(), size);
        return buffer.data();
    }
    std::string ShortInfo() const {
        std::ostringstream text;
        result.GetShortInfo(text);
        return text.str();
    }
    std::string LongInfo() const {
        std::ostringstream text;
        result.GetLongInfo(text);
        return text.str();
    }

    test::GlobalsGuard guard;
    std::unique_ptr<EEGFileInfoType> recording = test::SmallRecording(10);
    SpectMacroResult result{test::SmallMacro(), recording.get(), nullptr};
};

TEST_F(ResultTexts, WithoutAFileTheNameIsANumber) {
    const std::string name = result.GetName();
    EXPECT_EQ(name.rfind("Spectrum ", 0), 0u) << name;
    EXPECT_GE(std::stoi(name.substr(9)), 1);
    const SpectMacroResult next(test::SmallMacro(), recording.get(), nullptr);
    EXPECT_EQ(std::stoi(next.GetName().substr(9)), std::stoi(name.substr(9)) + 1);
}

TEST_F(ResultTexts, TheNameIsThatOfTheMacrosFile) {
    const test::TempFolder folder;
    ASSERT_EQ(result.GetMacro().SaveAs(folder.Path("Eyes closed.smx")), 0);
    EXPECT_EQ(result.GetName(), "Eyes closed");
}

TEST_F(ResultTexts, ShortInfoIsOneLine) {
    EXPECT_EQ(ShortInfo(), "1 s, 50 %, Hanning, 19 epochs");
    result.SetFFTSeconds(0.5);
    EXPECT_EQ(ShortInfo(), "0.5 s, 50 %, Hanning, 39 epochs");
}

TEST_F(ResultTexts, InfosAreOfTheSpectraWhileThereAreSome) {
    result.Compute(nullptr);
    result.SetFFTSeconds(4);
    result.SetDSPWindowStr("Hamming");
    result.GetMacro().SetContrastValue(3);
    EXPECT_EQ(ShortInfo(), "1 s, 50 %, Hanning, 19 epochs");
    for (const char* expected : {"FFT window: 1 s\n", "Windowing: Hanning\n", "FFT samples: 8\n",
                                 "Resolution: 1 Hz\n", "Epochs used: 19\n", "Contrast value: 3\n"}) {
        EXPECT_NE(LongInfo().find(expected), std::string::npos) << expected;
    }
    result.ResetData();
    EXPECT_EQ(ShortInfo(), "4 s, 50 %, Hamming, 4 epochs");
}

TEST_F(ResultTexts, ShortInfoKeepsThePointInEveryLocale) {
    const test::CommaNumerals comma;
    result.SetFFTSeconds(0.5);
    EXPECT_EQ(ShortInfo(), "0.5 s, 50 %, Hanning, 39 epochs");
    EXPECT_EQ(ProcData(), "39 epochs, 10.0 s");
}

TEST_F(ResultTexts, ProcessedDataAreEpochsAndTheTimeThatTheyCover) {
    EXPECT_EQ(ProcData(), "19 epochs, 10.0 s");
    result.Compute(nullptr);
    EXPECT_EQ(ProcData(), "19 epochs, 10.0 s");
    result.SetFFTSeconds(60);
    EXPECT_EQ(ProcData(), "19 epochs, 10.0 s"); // what was computed
    result.ResetData();
    EXPECT_EQ(ProcData(), "0 epochs, 0.0 s");
}

TEST_F(ResultTexts, ProcessedDataAreCutToTheBuffer) {
    EXPECT_EQ(ProcData(6), "19 ep");
    EXPECT_EQ(ProcData(1), "");
    std::array<char, 1> untouched = {'#'};
    result.GetProcDataString(untouched.data(), 0);
    EXPECT_EQ(untouched[0], '#');
    result.GetProcDataString(nullptr, 10);
}

TEST_F(ResultTexts, LongInfoHasANameAndAValueInEveryLine) {
    result.Compute(nullptr);
    std::istringstream text(LongInfo());
    unsigned lines = 0;
    for (std::string line; std::getline(text, line); ++lines) {
        EXPECT_NE(line.find(": "), std::string::npos) << line;
    }
    EXPECT_GE(lines, 10u);
    for (const char* expected : {"Overlap: 50 %\n", "Rate: 8 Hz\n", "FFT samples: 8\n", "Resolution: 1 Hz\n",
                                 "Epochs used: 19\n", "Computed: yes\n"}) {
        EXPECT_NE(LongInfo().find(expected), std::string::npos) << expected;
    }
}

} // namespace
