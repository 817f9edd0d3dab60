// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/dialog.h"
#include "host/toolkit/menu_templates.h"
#include "host/toolkit/message_module.h"
#include "host/toolkit/module.h"
#include "host/toolkit/version.h"
#include "tests/module/loaded_module.h"

#include <QFile>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <ostream>

namespace {

using orvanta::test::LoadedModule;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

std::vector<std::string> RegisteredNames() {
    std::vector<std::string> names;
    for (const owl::TModule* module : owl::RegisteredModules()) {
        names.push_back(module->GetName());
    }
    return names;
}

TEST(ModuleLoad, StartsTheToolkitThenMakesTheMessageModule) {
    const LoadedModule module;
    EXPECT_THAT(RegisteredNames(), ElementsAre(EndsWith("/Orvanta64.so"), "Orvanta"));
    EXPECT_EQ(owl::RegisteredModules()[0]->GetInstance(), owl::RegisteredModules()[1]->GetInstance());
}

TEST(ModuleLoad, IsUndoneByUnloading) {
    { const LoadedModule module; }
    EXPECT_FALSE(LoadedModule::IsInMemory());
    EXPECT_THAT(RegisteredNames(), IsEmpty());
}

TEST(ModuleLoad, LastsUntilTheLastUserUnloads) {
    std::optional<LoadedModule> first(std::in_place);
    const LoadedModule second;
    EXPECT_THAT(RegisteredNames(), ElementsAre(EndsWith("/Orvanta64.so"), "Orvanta"));
    first.reset();
    EXPECT_THAT(RegisteredNames(), ElementsAre(EndsWith("/Orvanta64.so"), "Orvanta"));
    EXPECT_NE(second.GetModulePtr(owl::OWLGetVersion()), nullptr);
}

TEST(ModuleLoad, MayBeRepeated) {
    { const LoadedModule module; }
    const LoadedModule again;
    EXPECT_THAT(RegisteredNames(), ElementsAre(EndsWith("/Orvanta64.so"), "Orvanta"));
    EXPECT_NE(*again.GetModulePtr(owl::OWLGetVersion()), nullptr);
}

TEST(ModuleLoad, BringsItsMenuAndTakesItAway) {
    {
        const LoadedModule module;
        ASSERT_EQ(owl::MenuTemplate(8320).size(), 35u);
        EXPECT_STREQ(owl::MenuTemplate(8320).front().text, "&View Spectrum");
    }
    EXPECT_TRUE(owl::MenuTemplate(8320).empty());
}

TEST(ModuleLoad, BringsItsDialogsAndTakesThemAway) {
    {
        const LoadedModule module;
        const PDialog dialog(nullptr, 1628, nullptr);
        EXPECT_EQ(dialog.windowTitle(), "Select Measures");
    }
    const PDialog dialog(nullptr, 1628, nullptr);
    EXPECT_EQ(dialog.windowTitle(), "");
}

TEST(ModuleLoad, BringsItsIconsAndTextsAndTakesThemAway) {
    {
        const LoadedModule module;
        EXPECT_TRUE(QFile::exists(":/icons/2064.svg"));
        const auto* texts = dynamic_cast<const PModule*>(owl::RegisteredModules()[1]);
        ASSERT_NE(texts, nullptr);
        EXPECT_EQ(texts->GetMsg2("MENU", "CM_SPE_MEAN"), "&Mean");
    }
    EXPECT_FALSE(LoadedModule::IsInMemory());
    EXPECT_FALSE(QFile::exists(":/icons/2064.svg"));
}

TEST(ModulePointer, LeadsToTheModuleOfTheLibrarysFile) {
    const LoadedModule module;
    owl::TModule** pointer = module.GetModulePtr(owl::OWLGetVersion());
    ASSERT_NE(pointer, nullptr);
    ASSERT_NE(*pointer, nullptr);
    EXPECT_EQ((*pointer)->GetName(), ORVANTA_MODULE_FILE);
    EXPECT_EQ(*pointer, owl::RegisteredModules().front());
    EXPECT_EQ(owl::ModuleFileName((*pointer)->GetInstance()), ORVANTA_MODULE_FILE);
    EXPECT_EQ(module.GetModulePtr(owl::OWLGetVersion()), pointer);
}

TEST(DocTemplateHead, HoldsNull) {
    const LoadedModule module;
    owl::TDocTemplate** head = module.GetDocTemplateHead(owl::OWLGetVersion());
    ASSERT_NE(head, nullptr);
    EXPECT_EQ(*head, nullptr);
    EXPECT_EQ(module.GetDocTemplateHead(owl::OWLGetVersion()), head);
}

struct Difference {
    std::uint32_t bits;
    bool answered;
};

void PrintTo(const Difference& difference, std::ostream* out) {
    *out << std::hex << std::showbase << difference.bits;
}

class CallersVersion : public testing::TestWithParam<Difference> {};

TEST_P(CallersVersion, MustAgreeAboveTheLow20Bits) {
    const LoadedModule module;
    const std::uint32_t version = owl::OWLGetVersion() ^ GetParam().bits;
    EXPECT_EQ(module.GetModulePtr(version) != nullptr, GetParam().answered);
    EXPECT_EQ(module.GetDocTemplateHead(version) != nullptr, GetParam().answered);
}

INSTANTIATE_TEST_SUITE_P(Differences, CallersVersion,
                         testing::Values(Difference{0, true}, Difference{0x00000001, true},
                                         Difference{0x00080000, true}, Difference{0x000FFFFF, true},
                                         Difference{0x00100000, false}, Difference{0x00100001, false},
                                         Difference{0x00200000, false}, Difference{0x40000000, false},
                                         Difference{0x80000000, false}, Difference{0xFFFFFFFF, false}));

TEST(RefusedVersion, ChangesNothing) {
    const LoadedModule module;
    owl::TModule* before = *module.GetModulePtr(owl::OWLGetVersion());
    module.GetModulePtr(~owl::OWLGetVersion());
    EXPECT_EQ(*module.GetModulePtr(owl::OWLGetVersion()), before);
    EXPECT_EQ(owl::RegisteredModules().size(), 2U);
}

} // namespace
