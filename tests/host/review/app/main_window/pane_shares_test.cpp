// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/main_window/pane_shares.h"

#include <gtest/gtest.h>

namespace {

using namespace orvanta::review;

TEST(PaneShares, OfANewUserGiveHalfToTheTracesAndThreeFifthsOfTheRestToTheSpectrum) {
    PaneLayout layout;
    EXPECT_EQ(layout.arrangement, Arrangement::TracesAbove);
    EXPECT_EQ(layout.Shares(), (PaneShares{0.5, 0.6}));
    EXPECT_EQ(layout.panel, SidePanel());
}

TEST(PaneShares, AreKeptForEachArrangementAsAText) {
    PaneLayout layout;
    layout.Shares() = {0.25, 0.7};
    layout.arrangement = Arrangement::Rows;
    layout.Shares() = {0.3333, 0.02};
    layout.panel = {false, 240};
    EXPECT_EQ(TextOf(layout), "2;2500,7000;5000,6000;3333,200;0,240");
    EXPECT_EQ(PaneLayoutOf(TextOf(layout)), layout);
    EXPECT_EQ(PaneLayoutOf(TextOf(PaneLayout())), PaneLayout());
}

TEST(PaneShares, AreNotReadFromATextThatMakesNoSense) {
    for (const char* text : {
             "", "0", "x;2500,7000;5000,6000;3333,200;0,240", "3;2500,7000;5000,6000;3333,200;0,240",
             "-1;2500,7000;5000,6000;3333,200;0,240",
             "0;450,550;450,450",                              // sizes of an earlier release
             "0;2500,7000;5000,6000;3333,199;0,240",           // nothing of it would be seen
             "0;2500,9801;5000,6000;3333,200;0,240",           // nor of the other
             "0;2500;5000,6000;3333,200;0,240",                // one number
             "0;2500,7000;5000,6000;3333,200;2,240",           // neither shown nor hidden
             "0;2500,7000;5000,6000;3333,200;0,-1",            // no width
             "0;2500,7000;5000,6000;3333,200;0,99999999999",   // no number
             "0;2500,7000;5000,6000;3333,200;0,240;0,240;0,0", // too much
         }) {
        EXPECT_FALSE(PaneLayoutOf(text)) << text;
    }
}

} // namespace
