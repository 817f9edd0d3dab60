// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectra_contract/events.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> called;

class Recorder : public FlagListener {
public:
    using FlagListener::FlagListener;
    void PerformAction() override {
        called.push_back(GetListenerName());
        if (action) {
            action();
        }
    }
    std::function<void()> action;
};

class Flags : public testing::Test {
protected:
    void SetUp() override { called.clear(); }
    ManagedFlag flag_;
};

TEST_F(Flags, CallListenersInTheOrderOfTheirRegistration) {
    Recorder first("first", flag_);
    Recorder second("second", &flag_);
    flag_.Set();
    EXPECT_THAT(called, ElementsAre("first", "second"));
}

TEST_F(Flags, CallNobodyThatIsGone) {
    { Recorder gone("gone", flag_); }
    flag_.Set();
    EXPECT_THAT(called, IsEmpty());
}

TEST_F(Flags, AListenerMayGoWhileItIsCalled) {
    struct Leaver : FlagListener {
        using FlagListener::FlagListener;
        void PerformAction() override {
            called.push_back(GetListenerName());
            self->reset(); // nothing of the object is touched after this
        }
        std::unique_ptr<FlagListener>* self = nullptr;
    };
    auto leaver = std::make_unique<Leaver>("leaver", flag_);
    std::unique_ptr<FlagListener> owner;
    leaver->self = &owner;
    owner = std::move(leaver);
    Recorder second("second", flag_);
    flag_.Set();
    EXPECT_THAT(called, ElementsAre("leaver", "second"));
    EXPECT_EQ(owner, nullptr);
}

TEST_F(Flags, AListenerMayRemoveALaterOne) {
    Recorder first("first", flag_);
    auto second = std::make_unique<Recorder>("second", flag_);
    Recorder third("third", flag_);
    first.action = [&] { second.reset(); };
    flag_.Set();
    EXPECT_THAT(called, ElementsAre("first", "third"));
}

TEST_F(Flags, AListenerAddedMeanwhileWaitsForTheNextTime) {
    Recorder first("first", flag_);
    std::unique_ptr<Recorder> added;
    first.action = [&] {
        if (added == nullptr) {
            added = std::make_unique<Recorder>("added", flag_);
        }
    };
    flag_.Set();
    EXPECT_THAT(called, ElementsAre("first"));
    flag_.Set();
    EXPECT_THAT(called, ElementsAre("first", "first", "added"));
}

TEST_F(Flags, ACopyListensToo) {
    const Recorder first("first", flag_);
    Recorder copy(first);
    flag_.Set();
    EXPECT_THAT(called, ElementsAre("first", "first"));
}

TEST_F(Flags, AssignmentMovesToTheOtherFlag) {
    ManagedFlag other;
    Recorder first("first", flag_);
    const Recorder second("second", other);
    first = second;
    flag_.Set();
    EXPECT_THAT(called, IsEmpty());
    other.Set();
    EXPECT_THAT(called, ElementsAre("second", "second"));
}

TEST_F(Flags, AListenerMayOutliveItsFlag) {
    auto flag = std::make_unique<ManagedFlag>();
    Recorder listener("late", *flag);
    flag.reset();
    Recorder none("none", nullptr);
    EXPECT_EQ(listener.GetListenerName(), "late");
    EXPECT_EQ(none.GetListenerName(), "none");
}

} // namespace
