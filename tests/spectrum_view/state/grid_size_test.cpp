// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum_view/state/grid_size.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace orvanta::spectrum_view;

TEST(GridSize, TakesTheNumbersGiven) {
    EXPECT_EQ(GridSizeOf(3, 2), (GridSize{3, 2}));
    EXPECT_EQ(GridSizeOf(0, 2), (GridSize{0, 2}));
    EXPECT_EQ(GridSizeOf(-1, 2), (GridSize{0, 2}));
    EXPECT_EQ(GridSizeOf(std::numeric_limits<int>::min(), std::numeric_limits<int>::min()), (GridSize{0, 0}));
}

TEST(GridSize, OfMoreThan65536CellsIsNone) {
    EXPECT_EQ(GridSizeOf(256, 256), (GridSize{256, 256}));
    EXPECT_EQ(GridSizeOf(65536, 1), (GridSize{65536, 1}));
    EXPECT_EQ(GridSizeOf(257, 256), (GridSize{0, 0}));
    EXPECT_EQ(GridSizeOf(65535, 65535).Cells(), 0u);
    EXPECT_EQ(GridSizeOf(std::numeric_limits<int>::max(), std::numeric_limits<int>::max()), (GridSize{0, 0}));
}

TEST(GridSize, IsPickedAsColumnsInTheLowerAndRowsInTheUpper16Bits) {
    EXPECT_EQ(PickedGridSize(0x00020003), (GridSize{2, 3}));
    EXPECT_EQ(PickedGridSize(0x000A0001), (GridSize{10, 1}));
    EXPECT_EQ(PickedGridSize(0x00000004), (GridSize{0, 4}));
    EXPECT_EQ(PickedGridSize(0xFFFFFFFF00020003), (GridSize{2, 3})) << "32 bits only";
    EXPECT_EQ(PickedGridSize(0xFFFFFFFF).Cells(), 0u) << "more than 65536 cells";
}

TEST(Paging, GoesOnWhileThereAreTracesBehindThePage) {
    EXPECT_EQ(NextPage(0, 4, 10), 4u);
    EXPECT_EQ(NextPage(4, 4, 10), 8u);
    EXPECT_EQ(NextPage(8, 4, 10), 8u);
    EXPECT_EQ(NextPage(0, 4, 4), 0u);
}

TEST(Paging, GoesBackToTheFirstTraceAtMost) {
    EXPECT_EQ(PreviousPage(8, 4), 4u);
    EXPECT_EQ(PreviousPage(3, 4), 0u);
    EXPECT_EQ(PreviousPage(0, 4), 0u);
}

} // namespace
