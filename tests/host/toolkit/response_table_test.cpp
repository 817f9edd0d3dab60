// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/response_table.h"

#include "host/toolkit/command_enabler.h"

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>
#include <vector>

namespace {

using owl::EventKind;
using owl::TEventKey;
using owl::WindowEvent;

constexpr unsigned kMean = 14346;
constexpr unsigned kTable = 14160; ///< a command and a message
constexpr unsigned kFirstEntity = 14456;
constexpr unsigned kLastEntity = 14462;
constexpr unsigned kBaseOnly = 14500;

/// Writes down what it is asked to do.
class Base : public owl::TEventHandler {
public:
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

    std::vector<std::string> log;

protected:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    void CmMean() { log.emplace_back("base mean"); }
    void CmBase() { log.emplace_back("base only"); }
    virtual void CmTable() { log.emplace_back("base table"); }
};

constinit const owl::TResponseTable Base::__entries = {
    owl::Command<&Base::CmMean>(kMean),
    owl::Command<&Base::CmBase>(kBaseOnly),
    owl::Command<&Base::CmTable>(kTable),
};

const owl::TResponseEntry* Base::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TEventHandler>(__entries, *this, key);
}

class View : public Base {
public:
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)

    void CmMean() { log.emplace_back("mean"); }
    void CmEntityTwo() { log.emplace_back("entity two"); }
    void CmSetEntity(unsigned id) { log.push_back("entity " + std::to_string(id - kFirstEntity)); }
    void CmTable() override { log.emplace_back("table"); }
    void CeSetEntity(owl::TCommandEnabler& enabler) {
        log.push_back("enabler of " + std::to_string(enabler.GetId()));
    }
    LPARAM EvTable(WPARAM wParam, LPARAM lParam) {
        log.push_back("message " + std::to_string(wParam) + " " + std::to_string(lParam));
        return -2;
    }
    void EvNotify(WPARAM wParam, LPARAM /*lParam*/) { log.push_back("notified " + std::to_string(wParam)); }
    void EvSize(unsigned type, const owl::TSize& size) {
        log.push_back("size " + std::to_string(type) + " " + std::to_string(size.cx) + "x" +
                      std::to_string(size.cy));
    }
    void EvSetFocus(HWND lost) { log.emplace_back(lost ? "focus from another" : "focus"); }
    void EvKeyDown(unsigned key, unsigned repeat, unsigned flags) {
        log.push_back("key " + std::to_string(key) + " " + std::to_string(repeat) + " " +
                      std::to_string(flags));
    }
    void EvLButtonDblClk(unsigned modKeys, const owl::TPoint& point) {
        log.push_back("double " + std::to_string(modKeys) + " " + std::to_string(point.x) + "," +
                      std::to_string(point.y));
    }
    void EvMouseWheel(unsigned /*modKeys*/, int delta, const owl::TPoint& point) {
        log.push_back("wheel " + std::to_string(delta) + " " + std::to_string(point.x));
    }
};

constinit const owl::TResponseTable View::__entries = {
    owl::Command<&View::CmMean>(kMean),
    owl::Command<&View::CmEntityTwo>(kFirstEntity + 2),
    owl::Command<&View::CmSetEntity>(kFirstEntity, kLastEntity),
    owl::CommandEnabler<&View::CeSetEntity>(kFirstEntity, kLastEntity),
    owl::Message<&View::EvTable>(kTable),
    owl::Message<&View::EvNotify>(14537),
    owl::On<WindowEvent::Size, &View::EvSize>(),
    owl::On<WindowEvent::SetFocus, &View::EvSetFocus>(),
    owl::On<WindowEvent::KeyDown, &View::EvKeyDown>(),
    owl::On<WindowEvent::LButtonDblClk, &View::EvLButtonDblClk>(),
    owl::On<WindowEvent::MouseWheel, &View::EvMouseWheel>(),
};

const owl::TResponseEntry* View::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<Base>(__entries, *this, key);
}

/// What the view does when this command runs.
std::vector<std::string> OnCommand(unsigned id) {
    View view;
    view.RunCommand(id);
    return view.log;
}

template <typename Args>
std::vector<std::string> On(EventKind kind, unsigned id, const Args& args) {
    View view;
    view.Dispatch({{kind, id}, args});
    return view.log;
}

template <typename Args>
std::vector<std::string> On(WindowEvent event, const Args& args) {
    return On(EventKind::Window, static_cast<unsigned>(event), args);
}

using Log = std::vector<std::string>;

TEST(ResponseTable, TakesTheOwnEntryBeforeTheBases) {
    EXPECT_EQ(OnCommand(kMean), Log{"mean"});
}

TEST(ResponseTable, FallsThroughToTheBase) {
    EXPECT_EQ(OnCommand(kBaseOnly), Log{"base only"});
}

TEST(ResponseTable, CallsTheOverrideOfABasesVirtualMethod) {
    EXPECT_EQ(OnCommand(kTable), Log{"table"});
}

TEST(ResponseTable, TakesTheFirstEntryThatAnswers) {
    EXPECT_EQ(OnCommand(kFirstEntity + 2), Log{"entity two"});
}

TEST(ResponseTable, HandsARangesMethodTheNumber) {
    EXPECT_EQ(OnCommand(kFirstEntity), Log{"entity 0"});
    EXPECT_EQ(OnCommand(kLastEntity), Log{"entity 6"});
}

TEST(ResponseTable, EndsARangeAtItsLastNumber) {
    View view;
    EXPECT_FALSE(view.RunCommand(kFirstEntity - 1));
    EXPECT_FALSE(view.RunCommand(kLastEntity + 1));
    EXPECT_EQ(view.log, Log{});
}

TEST(ResponseTable, KnowsNothingOfAnUnknownNumber) {
    const View view;
    EXPECT_EQ(view.Find({EventKind::Command, 1}), nullptr);
    EXPECT_EQ(view.Find({EventKind::Message, kMean}), nullptr);
    EXPECT_EQ(view.Find({EventKind::Enabler, kMean}), nullptr);
}

TEST(ResponseTable, KeepsACommandAndAMessageOfOneNumberApart) {
    EXPECT_EQ(OnCommand(kTable), Log{"table"});
    EXPECT_EQ(On(EventKind::Message, kTable, owl::MessageArgs{7, -1}), Log{"message 7 -1"});
}

TEST(ResponseTable, AnswersTheResultOfAMessage) {
    View view;
    EXPECT_EQ(view.Dispatch({{EventKind::Message, kTable}, owl::MessageArgs{}}), -2);
    EXPECT_EQ(view.Dispatch({{EventKind::Message, 14537}, owl::MessageArgs{}}), 0);
    EXPECT_EQ(view.Dispatch({{EventKind::Message, 1}, owl::MessageArgs{}}), std::nullopt);
}

TEST(ResponseTable, HandsTheEnablerToItsMethod) {
    owl::TCommandEnabler enabler(kLastEntity);
    EXPECT_EQ(On(EventKind::Enabler, kLastEntity, &enabler), Log{"enabler of 14462"});
}

TEST(ResponseTable, HandsWindowEventsTheirArguments) {
    QWidget* const other = nullptr;
    EXPECT_EQ(On(WindowEvent::Size, owl::SizeArgs{2, {30, 20}}), Log{"size 2 30x20"});
    EXPECT_EQ(On(WindowEvent::SetFocus, owl::FocusArgs{HWND(other)}), Log{"focus"});
    EXPECT_EQ(On(WindowEvent::KeyDown, owl::KeyArgs{0x31, 1, 10}), Log{"key 49 1 10"});
    EXPECT_EQ(On(WindowEvent::LButtonDblClk, owl::MouseArgs{8, {5, 6}}), Log{"double 8 5,6"});
    EXPECT_EQ(On(WindowEvent::MouseWheel, owl::WheelArgs{0, -120, {9, 1}}), Log{"wheel -120 9"});
}

class Stranger : public owl::TEventHandler {
public:
    void CmStrange() {}
};

/// Its table names a method of another class.
class Mistaken : public owl::TEventHandler {
public:
    const owl::TResponseEntry* Find(const owl::TEventKey& key) const override;

private:
    static const owl::TResponseTable __entries; // NOLINT(bugprone-reserved-identifier)
};

constinit const owl::TResponseTable Mistaken::__entries = {owl::Command<&Stranger::CmStrange>(1)};

const owl::TResponseEntry* Mistaken::Find(const owl::TEventKey& key) const {
    return owl::FindFirst<owl::TEventHandler>(__entries, *this, key);
}

TEST(ResponseTable, RefusesAMethodOfAnotherClass) {
    Mistaken handler;
    EXPECT_THROW(handler.RunCommand(1), std::bad_cast);
}

} // namespace
