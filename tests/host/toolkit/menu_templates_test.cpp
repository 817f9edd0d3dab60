// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/menu_templates.h"

#include <gtest/gtest.h>

namespace {

constexpr owl::MenuItem kItems[] = {{11, "One"}, {0, ""}, {12, "Two"}};
constexpr owl::MenuItem kOther[] = {{13, "Three"}};
constexpr unsigned kNumber = 60001;

TEST(MenuTemplates, AreKnownByTheirNumber) {
    owl::RegisterMenuTemplate(kNumber, kItems);
    EXPECT_EQ(owl::MenuTemplate(kNumber).data(), kItems);
    EXPECT_EQ(owl::MenuTemplate(kNumber).size(), 3u);
    EXPECT_TRUE(owl::MenuTemplate(kNumber + 1).empty());
    owl::RegisterMenuTemplate(kNumber, {});
}

TEST(MenuTemplates, AreReplacedAndForgotten) {
    owl::RegisterMenuTemplate(kNumber, kItems);
    owl::RegisterMenuTemplate(kNumber, kOther);
    EXPECT_EQ(owl::MenuTemplate(kNumber).data(), kOther);
    owl::RegisterMenuTemplate(kNumber, {});
    EXPECT_TRUE(owl::MenuTemplate(kNumber).empty());
}

TEST(MenuTemplates, MakeMenus) {
    owl::RegisterMenuTemplate(kNumber, kItems);
    const owl::TMenu menu(owl::MenuTemplate(kNumber));
    EXPECT_EQ(menu.actions().size(), 3);
    EXPECT_EQ(menu.Item(12)->text().toStdString(), "Two");
    owl::RegisterMenuTemplate(kNumber, {});
}

} // namespace
