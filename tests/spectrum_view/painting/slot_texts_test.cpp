// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/painting/slot_texts.h"

#include "host/toolkit/painter_dc.h"
#include "tests/spectrum_view/painting/sample_plots.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace {

using namespace orvanta;
using namespace orvanta::spectrum_view;

/// Characters 0.6 of the height wide, lines 1.2 of it high.
TextExtent Extent(int height) {
    return [height](std::string_view text) {
        const auto characters =
            std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; });
        return owl::TSize{static_cast<int>(characters) * height * 3 / 5, height * 6 / 5};
    };
}

SlotTexts TextsAt(PlotInput plot, int fontHeight) {
    plot.frame.font.height = fontHeight;
    const auto extentIn = [](const owl::TFont& font, std::string_view text) {
        return Extent(font.height)(text);
    };
    const owl::TFont numbers = NumbersFont(plot.frame.slot, plot.frame.font, MarksRows(plot), extentIn);
    return TextsOf(plot, Extent(fontHeight), Extent(numbers.height));
}

/// In the font of the screen.
SlotTexts TextsOnScreen(const PlotInput& plot) {
    QImage image(1, 1, QImage::Format_RGB32);
    QPainter painter(&image);
    owl::PainterDC dc(painter);
    const auto extentIn = [&dc](const owl::TFont& font, std::string_view text) {
        dc.SelectFont(font);
        return dc.GetTextExtent(text);
    };
    const owl::TFont numbers = NumbersFont(plot.frame.slot, plot.frame.font, MarksRows(plot), extentIn);
    return TextsOf(
        plot, [&](std::string_view text) { return extentIn(plot.frame.font, text); },
        [&](std::string_view text) { return extentIn(numbers, text); });
}

std::vector<owl::TRect> AllRects(const SlotTexts& texts) {
    std::vector<owl::TRect> rects;
    for (const PlacedTexts* group : {&texts.label, &texts.frequency.numbers, &texts.vertical.numbers,
                                     &texts.caption, &texts.legend, &texts.unity}) {
        for (const PlacedText& text : *group) {
            rects.push_back(text.rect);
        }
    }
    return rects;
}

bool Inside(const owl::TRect& rect, const owl::TRect& slot) {
    return rect.left > slot.left && rect.top > slot.top && rect.right < slot.right &&
           rect.bottom < slot.bottom;
}

testing::AssertionResult AreApartAndWhole(const SlotTexts& texts, const owl::TRect& slot) {
    const std::vector<owl::TRect> rects = AllRects(texts);
    for (std::size_t i = 0; i < rects.size(); ++i) {
        if (!Inside(rects[i], slot)) {
            return testing::AssertionFailure() << "text " << i << " is cut";
        }
        for (std::size_t j = 0; j < i; ++j) {
            if (rects[i].Touches(rects[j])) {
                return testing::AssertionFailure() << "texts " << j << " and " << i << " overlap";
            }
        }
    }
    return testing::AssertionSuccess();
}

TEST(SlotTexts, NeverOverlapAndAreNeverCut) {
    for (const int width : {20, 75, 120, 150, 300, 341, 480, 683, 960, 1920, 3840}) {
        for (const int height : {20, 50, 80, 135, 190, 250, 384, 540, 1080, 2160}) {
            for (const int font : {9, 12, 18, 24, 36}) {
                for (const double max : {2.3e-5, 0.02, 1.0, 22.0, 987.0, 4.5e6}) {
                    PlotInput plot = test::ComparedPlot({7, 3, 7 + width, 3 + height}, "Fp1-F7");
                    plot.frame.vertical.max = max;
                    plot.normalisation = SPECT::Normalisation::ByF;
                    EXPECT_TRUE(AreApartAndWhole(TextsAt(plot, font), plot.frame.slot))
                        << width << "x" << height << " font " << font << " max " << max;
                }
            }
        }
    }
}

TEST(SlotTexts, KeepOutOfTheMeasuresBox) {
    for (int height = 60; height <= 600; height += 5) {
        PlotInput plot = test::ComparedPlot({0, 0, 2 * height, height});
        plot.frame.box = {height, height * 13 / 100, 18 * height / 10, height / 2};
        for (const owl::TRect& rect : AllRects(TextsAt(plot, 12))) {
            EXPECT_FALSE(rect.Touches(plot.frame.box)) << height;
        }
    }
}

TEST(SlotTexts, LoseTheNumbersOfTheAxesBeforeTheLabel) {
    bool lostNumbers = false;
    bool lostLabel = false;
    for (int width = 600; width >= 10; width -= 5) {
        const SlotTexts texts = TextsAt(test::RestingPlot({0, 0, width, width * 2 / 3}), 12);
        const bool numbers = !texts.frequency.numbers.empty() || !texts.vertical.numbers.empty();
        EXPECT_FALSE(numbers && texts.label.empty()) << width;
        EXPECT_FALSE(numbers && lostNumbers) << width;
        EXPECT_FALSE(!texts.label.empty() && lostLabel) << width;
        lostNumbers = lostNumbers || !numbers;
        lostLabel = lostLabel || texts.label.empty();
    }
    EXPECT_TRUE(lostNumbers);
    EXPECT_TRUE(lostLabel);
}

TEST(SlotTexts, NameTheTraceAloneWhereTheUnitHasNoRoom) {
    EXPECT_EQ(TextsAt(test::RestingPlot({0, 0, 200, 100}), 12).label[0].text, "O1 (µV²/Hz)");
    EXPECT_EQ(TextsAt(test::RestingPlot({0, 0, 60, 50}), 12).label[0].text, "O1");
    EXPECT_TRUE(TextsAt(test::RestingPlot({0, 0, 16, 50}), 12).label.empty());
}

TEST(SlotTexts, NameTheUnitAtTheAxisWhereThereIsNoLabel) {
    PlotInput plot = test::RestingPlot({0, 0, 600, 400});
    EXPECT_TRUE(TextsAt(plot, 12).caption.empty());
    plot.frame.flags.labels = false;
    ASSERT_EQ(TextsAt(plot, 12).caption.size(), 1u);
    EXPECT_EQ(TextsAt(plot, 12).caption[0].text, "µV²/Hz");
    EXPECT_TRUE(TextsAt(plot, 12).label.empty());
}

TEST(SlotTexts, NameTheLineOfARatioOfOneOnlyWithTheLegend) {
    const SlotTexts large = TextsAt(test::ComparedPlot({0, 0, 600, 400}), 12);
    EXPECT_EQ(large.legend.size(), 2u);
    EXPECT_EQ(large.unity.size(), 1u);
    const SlotTexts small = TextsAt(test::ComparedPlot({0, 0, 150, 100}), 12);
    EXPECT_EQ(small.label.size(), 1u);
    EXPECT_TRUE(small.legend.empty() && small.signs.empty() && small.unity.empty());
}

TEST(SlotTexts, WithoutAxesTextHaveTicksOnly) {
    PlotInput plot = test::RestingPlot({0, 0, 600, 400});
    plot.frame.flags.axesText = false;
    const SlotTexts texts = TextsAt(plot, 12);
    EXPECT_TRUE(texts.frequency.numbers.empty() && texts.vertical.numbers.empty());
    EXPECT_FALSE(texts.frequency.ticks.empty() || texts.vertical.ticks.empty());
    EXPECT_EQ(texts.label.size(), 1u);
}

TEST(AxisNumbers, ThatOneDecimalCannotTellApartAreMultiplesOfAPowerOfThousand) {
    PlotInput plot = test::RestingPlot({0, 0, 600, 400});
    plot.frame.vertical = {0, 0.02, 0};
    const SlotTexts texts = TextsAt(plot, 12);
    EXPECT_EQ(texts.vertical.multiplier, "×10⁻³");
    EXPECT_EQ(texts.vertical.numbers.front().text, "0.0");
    EXPECT_EQ(texts.vertical.numbers.back().text, "20.0");
    EXPECT_EQ(texts.caption[0].text, "×10⁻³");
}

TEST(AxisNumbers, TooLongForTheMarginAreMultiplesOfAPowerOfThousand) {
    PlotInput plot = test::RestingPlot({0, 0, 600, 400});
    plot.frame.vertical = {0, 4.5e6, 0};
    EXPECT_EQ(TextsAt(plot, 12).vertical.multiplier, "×10⁶");
    plot.frame.vertical = {0, 4500, 0};
    EXPECT_EQ(TextsAt(plot, 12).vertical.multiplier, "");
}

TEST(AxisNumbers, StandAtBothAxesOfASmallSlot) {
    for (const owl::TRect& slot :
         {owl::TRect{0, 0, 250, 155}, owl::TRect{0, 0, 256, 192}, owl::TRect{0, 0, 260, 200}}) {
        for (const double max : {0.02, 0.7, 1.0, 22.0, 90.0, 130.0, 987.0, 4500.0}) {
            PlotInput plot = test::RestingPlot(slot);
            plot.frame.vertical.max = max;
            const SlotTexts texts = TextsOnScreen(plot);
            EXPECT_GE(texts.frequency.numbers.size(), 3u) << slot.Width() << "x" << slot.Height();
            plot.p.assign(65, 0.01);
            EXPECT_GE(TextsOnScreen(plot).frequency.numbers.size(), 3u) << "marked " << slot.Height();
            EXPECT_GE(texts.vertical.numbers.size(), 2u)
                << slot.Width() << "x" << slot.Height() << " max " << max;
        }
    }
}

TEST(AxisNumbers, OfOneAxisStayWhereTheOtherOneHasNoRoom) {
    const SlotTexts low = TextsAt(test::RestingPlot({0, 0, 500, 110}), 12);
    EXPECT_TRUE(low.frequency.numbers.empty());
    EXPECT_FALSE(low.vertical.numbers.empty());
    const SlotTexts narrow = TextsAt(test::RestingPlot({0, 0, 150, 300}), 12);
    EXPECT_FALSE(narrow.frequency.numbers.empty());
    EXPECT_TRUE(narrow.vertical.numbers.empty());
}

TEST(AxisNumbers, SayTheirValuesExactly) {
    for (const double max : {0.07, 0.6, 7.0, 70.0, 600.0, 7000.0}) {
        for (int height = 60; height <= 400; height += 10) {
            PlotInput plot = test::RestingPlot({0, 0, 400, height});
            plot.frame.vertical.max = max;
            const AxisLayout axis = TextsAt(plot, 12).vertical;
            const double unit = axis.multiplier.empty() ? 1 : axis.multiplier == "×10³" ? 1e3 : 1e-3;
            for (const PlacedText& number : axis.numbers) {
                const double share = std::stod(number.text) * unit / max;
                const int y = ValueY(plot.frame.slot, plot.frame.vertical, share * max);
                EXPECT_TRUE(std::find(axis.ticks.begin(), axis.ticks.end(), y) != axis.ticks.end())
                    << number.text << axis.multiplier << " of " << max;
            }
        }
    }
}

TEST(AxisNumbers, OfValuesThatAreAllZeroStayAway) {
    PlotInput plot = test::RestingPlot({0, 0, 600, 400});
    plot.frame.vertical = {0, std::numeric_limits<double>::min(), 0};
    EXPECT_TRUE(TextsAt(plot, 12).vertical.numbers.empty());
}

TEST(AxisNumbers, StandUnderTheSignificanceMarks) {
    const SlotTexts texts = TextsAt(test::ComparedPlot({0, 0, 600, 400}), 12);
    ASSERT_FALSE(texts.frequency.numbers.empty());
    // Baseline 368, marks to 368 + 8.
    EXPECT_EQ(texts.frequency.numbers.front().rect.top, 377);
}

TEST(AxisNumbers, GetSmallerWhereTheMarginBelowIsLow) {
    const auto square = [](const owl::TFont& font, std::string_view text) {
        return owl::TSize{font.height / 2 * static_cast<int>(text.size()), font.height};
    };
    const owl::TFont font{"Verdana", 14, false, false};
    EXPECT_EQ(NumbersFont({0, 0, 500, 400}, font, 0, square).height, 14);
    EXPECT_EQ(NumbersFont({0, 0, 400, 200}, font, 0, square).height, 12); // 9 rows of digits from 190 on
    EXPECT_EQ(NumbersFont({0, 0, 400, 100}, font, 0, square).height, kSmallestNumbers);
    EXPECT_EQ(NumbersFont({0, 0, 400, 100}, {"Verdana", 8, false, false}, 0, square).height, 8);
}

} // namespace
