// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/wait_cursor.h"
#include "tests/support/qt/scripted_user.h"

#include <QCursor>
#include <QGuiApplication>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using testing::ElementsAre;

TEST(WaitCursor, IsShownAndRestored) {
    EXPECT_EQ(owl::CurrentCursor(), 0U);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    {
        const owl::WaitCursor wait;
        EXPECT_EQ(owl::CurrentCursor(), 32514U);
        ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(owl::CurrentCursor(), 0U);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(WaitCursor, MayBeNested) {
    const owl::WaitCursor outer;
    { const owl::WaitCursor inner; }
    EXPECT_EQ(owl::CurrentCursor(), 32514U);
    ASSERT_NE(QGuiApplication::overrideCursor(), nullptr);
}

TEST(WaitCursor, IsRestoredWhenAnExceptionPasses) {
    const orvanta::test::CursorLog cursors;
    try {
        const owl::WaitCursor wait;
        throw std::runtime_error("stop");
    } catch (const std::runtime_error&) {
        EXPECT_THAT(cursors.Log(), ElementsAre(32514U, 0U));
    }
    EXPECT_EQ(owl::CurrentCursor(), 0U);
}

TEST(WaitCursor, LeavesQtAloneWhileItsDisplayIsReplaced) {
    const orvanta::test::CursorLog cursors;
    const owl::WaitCursor wait;
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_THAT(cursors.Log(), ElementsAre(32514U));
}

} // namespace
