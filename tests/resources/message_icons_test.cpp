// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/form_style.h"
#include "host/toolkit/icon.h"

#include <QIcon>
#include <QPixmap>
#include <gtest/gtest.h>

namespace {

TEST(MessageIcons, AreOfThisProgramAndSharpAtEveryScale) {
    const std::pair<QStyle::StandardPixmap, const char*> icons[] = {
        {QStyle::SP_MessageBoxWarning, "warning"},
        {QStyle::SP_MessageBoxCritical, "error"},
        {QStyle::SP_MessageBoxQuestion, "question"},
        {QStyle::SP_MessageBoxInformation, "information"},
    };
    const owl::FormStyle style;
    for (const auto& [icon, name] : icons) {
        for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
            const QPixmap shown = style.standardIcon(icon, nullptr, nullptr).pixmap(QSize(48, 48), scale);
            EXPECT_EQ(shown.size(), QSize(48, 48) * scale) << name;
            const QPixmap own = owl::IconOf(QString(name)).pixmap(QSize(48, 48), scale);
            EXPECT_EQ(shown.toImage(), own.toImage()) << name;
        }
    }
}

} // namespace
