// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/spectral_data/settings/tapers.h"

#include "host/platform/module_path.h"
#include "tests/support/temp_folder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace orvanta::spectral {
namespace {

using Names = std::vector<std::string>;

void ExpectValues(const Taper& taper, const std::vector<double>& expected) {
    const std::vector<double> values = taper.Values(static_cast<std::uint32_t>(expected.size()));
    ASSERT_EQ(values.size(), expected.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_NEAR(values[i], expected[i], 1e-15) << taper.Name() << " of " << values.size() << ", " << i;
    }
}

/// Why the content is refused; empty when it is read.
std::string Refusal(const std::string& content) {
    try {
        Taper::Parse("folder/T.wnd", content);
        return {};
    } catch (const std::runtime_error& error) {
        return error.what();
    }
}

TEST(Tapers, ShippedOnesAreFoundBesideTheLibrary) {
    EXPECT_EQ(ListTapers(), Names({"Blackman", "Blackman-Harris", "Flat Top", "Hamming", "Hanning",
                                   "Rectangular", "Triangular"}));
    EXPECT_TRUE(std::filesystem::is_regular_file(GetTaperFolder() + "Hanning.wnd"));
}

TEST(Tapers, ShippedOnesLieBesideTheProgramsToo) {
    const std::filesystem::path program = platform::ExecutablePath();
    EXPECT_TRUE(std::filesystem::is_regular_file(program.parent_path() / "Flat Top.wnd"));
}

// scipy.signal.get_window(name, n) of SciPy 1.10.1: boxcar, hamming, hann, triang, blackman, blackmanharris,
// flattop.
TEST(Tapers, ShippedOnesEqualThePeriodicFormsOfSciPy) {
    struct Case {
        const char* name;
        std::vector<double> values;
    };
    const Case cases[] = {
        {"Rectangular", {1, 1, 1, 1, 1, 1, 1}},
        {"Rectangular", {1, 1, 1, 1, 1, 1, 1, 1}},
        {"Hamming",
         {0.08000000000000007, 0.2531946911449827, 0.6423596296199047, 0.9544456792351128, 0.9544456792351128,
          0.6423596296199047, 0.2531946911449827}},
        {"Hamming",
         {0.08000000000000007, 0.21473088065418822, 0.54, 0.865269119345812, 1, 0.865269119345812, 0.54,
          0.21473088065418822}},
        {"Hanning",
         {0, 0.1882550990706333, 0.6112604669781573, 0.9504844339512095, 0.9504844339512095,
          0.6112604669781573, 0.1882550990706333}},
        {"Hanning",
         {0, 0.14644660940672627, 0.5, 0.8535533905932738, 1, 0.8535533905932738, 0.5, 0.14644660940672627}},
        {"Triangular", {0.5, 1}},
        {"Triangular", {0.125, 0.375, 0.625, 0.875, 0.875, 0.625, 0.375}},
        {"Triangular", {0.2, 0.4, 0.6, 0.8, 1, 0.8, 0.6, 0.4}},
        {"Blackman",
         {0, 0.09045342435412812, 0.45918295754596367, 0.9203636180999081, 0.9203636180999081,
          0.45918295754596367, 0.09045342435412812}},
        {"Blackman",
         {0, 0.06644660940672624, 0.34, 0.7735533905932739, 1, 0.7735533905932739, 0.34,
          0.06644660940672624}},
        {"Blackman-Harris",
         {6.0000000000001025e-05, 0.03339172347815124, 0.33283350429856506, 0.8893697722232837,
          0.8893697722232837, 0.33283350429856506, 0.03339172347815124}},
        {"Blackman-Harris",
         {6.0000000000001025e-05, 0.021735837018679628, 0.21747000000000008, 0.6957641629813205, 1,
          0.6957641629813205, 0.21747000000000008, 0.021735837018679628}},
        {"Flat Top",
         {-0.0004210510000000013, -0.036840781154923445, 0.01070371671615349, 0.7808739149387699,
          0.7808739149387699, 0.01070371671615349, -0.036840781154923445}},
        {"Flat Top",
         {-0.0004210510000000013, -0.02687219328633453, -0.05473684, 0.44413535728633463, 1.000000003,
          0.44413535728633463, -0.05473684, -0.02687219328633453}},
    };
    for (const Case& item : cases) {
        ExpectValues(FindTaper(item.name), item.values);
    }
}

TEST(Tapers, OneSampleIsOne) {
    for (const std::string& name : ListTapers()) {
        EXPECT_EQ(FindTaper(name).Values(1), std::vector<double>{1}) << name;
    }
}

TEST(Tapers, ValuesAreSymmetricBitForBit) {
    for (const std::string& name : ListTapers()) {
        const std::vector<double> values = FindTaper(name).Values(1000);
        for (std::size_t i = 1; i < 1000; ++i) {
            ASSERT_EQ(values[i], values[1000 - i]) << name << " " << i;
        }
    }
}

TEST(Tapers, ATableIsInterpolatedOverOneCycle) {
    const Taper taper = Taper::Parse("T.wnd", "kind=table\nvalues=0 1 2\nvalues=1\n");
    ExpectValues(taper, {0, 1, 2, 1});
    ExpectValues(taper, {0, 0.5, 1, 1.5, 2, 1.5, 1, 0.5});
    ExpectValues(taper, {0, 2});
}

TEST(Tapers, FilesMayHaveCommentsBlanksAndAnyLineEnd) {
    const Taper taper = Taper::Parse("/folder/My own.wnd",
                                     "\xEF\xBB\xBF# mine\r\n\r\n kind = Cosine \rcoefficients =\t0.5  0.5\n");
    EXPECT_EQ(taper.Name(), "My own");
    ExpectValues(taper, {0, 0.5, 1, 0.5});
}

TEST(Tapers, RefusalsNameTheLine) {
    const std::pair<std::string, std::string> cases[] = {
        {"kind=cosine\n\n0.5 0.5",
         "line 3: no \"key=value\" (write kind=, coefficients= or values=, or begin "
         "a comment with #)"},
        {"kind=sine", "line 1: unknown kind (use cosine, triangle or table)"},
        {"# a\nkind=triangle\nkind=triangle", "line 3: kind is there twice (remove one of the lines)"},
        {"shape=cosine", "line 1: unknown key (use kind, coefficients or values)"},
        {"coefficients=1",
         "line 1: coefficients belong to kind=cosine (put the matching kind= line before this one)"},
        {"kind=table\ncoefficients=1",
         "line 2: coefficients belong to kind=cosine (put the matching kind= line before this one)"},
        {"kind=cosine\nvalues=1 2",
         "line 2: values belong to kind=table (put the matching kind= line before this one)"},
        {"kind=cosine\ncoefficients=1\ncoefficients=1",
         "line 3: coefficients are there twice (remove one of the lines)"},
        {"kind=cosine\ncoefficients=1 x",
         "line 2: no number from -1000000 to 1000000 (separate numbers by blanks)"},
        {"kind=cosine\ncoefficients=1e7",
         "line 2: no number from -1000000 to 1000000 (separate numbers by blanks)"},
        {"kind=cosine\ncoefficients=nan",
         "line 2: no number from -1000000 to 1000000 (separate numbers by blanks)"},
        {"kind=cosine\ncoefficients=1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3 4 5 6 7 8 9 0 1 2 3",
         "line 2: more than 32 numbers (shorten the list)"},
        {"kind=cosine\ncoefficients=0 0",
         "line 2: no number that is not 0 (add a line coefficients=... or values=...)"},
        {"kind=cosine", "line 1: no number that is not 0 (add a line coefficients=... or values=...)"},
        {"kind=table\nvalues=1", "line 2: fewer than 2 values (add a line values=...)"},
        {"# nothing", "line 1: no kind (add a line kind=cosine, kind=triangle or kind=table)"},
    };
    for (const auto& [content, reason] : cases) {
        EXPECT_EQ(Refusal(content), "folder/T.wnd: " + reason);
    }
}

TEST(Tapers, RefusesAHugeFile) {
    EXPECT_EQ(Refusal("kind=triangle" + std::string(2u << 20, '\n')),
              "folder/T.wnd: larger than 2097152 bytes (choose a window function's file)");
}

class TaperFolder : public testing::Test {
protected:
    TaperFolder() { SetTaperFolder(folder_.Path("")); }
    ~TaperFolder() override { SetTaperFolder(""); }

    test::TempFolder folder_;
};

TEST_F(TaperFolder, ListsByNameWithoutRegardToCase) {
    for (const char* name : {"b.wnd", "A.WND", "c.Wnd", "B.wnd", "d.txt", "wnd"}) {
        folder_.Write(name, "kind=triangle");
    }
    folder_.Write("e.wnd/inside", "a folder is no window function");
    EXPECT_EQ(ListTapers(), Names({"A", "B", "b", "c"}));
}

TEST_F(TaperFolder, FindsInAnyCaseTheExactOneFirst) {
    folder_.Write("Ab.wnd", "kind=table\nvalues=1 1");
    folder_.Write("aB.wnd", "kind=table\nvalues=1 2");
    EXPECT_EQ(FindTaper("aB").Name(), "aB");
    EXPECT_EQ(FindTaper("ab").Name(), "Ab");
}

TEST_F(TaperFolder, SaysWhatIsMissing) {
    try {
        folder_.Write("Ab.wnd", "kind=triangle");
        folder_.Write("Cd.wnd", "kind=triangle");
        FindTaper("../Hanning");
        FAIL() << "found a window function outside the folder";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "there is no window function \"../Hanning\" (one of Ab, Cd)");
    }
}

TEST_F(TaperFolder, AFolderThatIsNotThereHasNone) {
    SetTaperFolder(folder_.Path("none"));
    EXPECT_EQ(GetTaperFolder(), folder_.Path("none") + "/");
    EXPECT_TRUE(ListTapers().empty());
}

} // namespace
} // namespace orvanta::spectral
