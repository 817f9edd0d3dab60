// SPDX-License-Identifier: GPL-3.0-or-later
// The application with its window, on recordings of a test.
#pragma once

#include "host/review/app/events/event_editor.h"
#include "host/review/app/main_window/analysis_runner.h"
#include "host/review/app/main_window/document.h"
#include "host/review/app/main_window/documents.h"
#include "host/review/app/main_window/main_window.h"
#include "host/review/app/main_window/open_views.h"
#include "host/review/app/main_window/shell.h"
#include "host/review/app/main_window/workbench.h"
#include "host/review/app/module_library.h"
#include "host/review/cli/demo_recording.h"
#include "spectra_contract/recording.h"
#include "spectra_contract/spectra_mgr.h"
#include "tests/support/globals_guard.h"
#include "tests/support/qt/fake_services.h"
#include "tests/support/qt/idle.h"
#include "tests/support/qt/scripted_user.h"
#include "tests/support/temp_folder.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace orvanta::test {

/// The module, loaded once.
inline review::ModuleBridge& LoadedModule() {
    static const review::ModuleLibrary module(review::LibraryFolder());
    return module.Bridge();
}

class WorkbenchFixture : public testing::Test {
protected:
    /// Names of protocols are kept beside the program: each test has its own.
    WorkbenchFixture() { services.files.RunFrom(folder.Path("orvanta")); }
    ~WorkbenchFixture() override { Leave(); }

    review::Workbench::Setup Setup() const {
        return {.settingsFile = folder.Path("settings.ini"),
                .dataFolder = folder.Path("data/"),
                .bridge = &LoadedModule(),
                .moduleProblem = {}};
    }
    /// The application starts.
    review::Workbench& Start(const std::string& file = {}) { return Start(Setup(), file); }
    review::Workbench& Start(const review::Workbench::Setup& setup, const std::string& file) {
        bench = std::make_unique<review::Workbench>(setup);
        bench->Start(file);
        WaitUntilIdle();
        return *bench;
    }
    /// The user closes the window; the application ends.
    void Leave() {
        if (bench != nullptr) {
            bench->Window().close();
            WaitUntilIdle();
            bench.reset();
        }
    }

    /// A recording of 30 s with open, then 30 s with closed eyes, and so on.
    std::string Demo(const std::string& name = "demo.edf", std::uint64_t seed = 1, double minutes = 1) const {
        cli::DemoSignal signal({.minutes = minutes, .channels = 19, .rate_hz = 64, .seed = seed});
        cli::WriteDemoRecording(folder.Path(name), signal);
        return folder.Path(name);
    }

    EEGFileInfoType& Recording() const { return bench->GetDocuments().Current()->Recording(); }
    review::EventEditor& Events() const { return bench->GetDocuments().Current()->Events(); }
    SpectraMgr& Analyses() const { return bench->GetDocuments().Current()->Analyses(); }
    /// To this one of the recording's list.
    void ChangeMontage(std::size_t index) const { Recording().ChangeMntg(index, true); }
    /// Appends an analysis of everything, not computed.
    SpectMacroResult& AddAnalysis(const SpectraMacro& macro = {}) const {
        auto* analysis = new SpectMacroResult(macro, &Recording(), nullptr);
        Analyses().push_back(analysis);
        return *analysis;
    }

    QAction& Item(const char* name) const {
        auto* action = bench->Window().findChild<QAction*>(name);
        EXPECT_NE(action, nullptr) << name;
        return *action;
    }
    QMenu& Menu(const char* name) const {
        auto* menu = bench->Window().findChild<QMenu*>(name);
        EXPECT_NE(menu, nullptr) << name;
        return *menu;
    }
    /// The menu opens; what its items look like is told by their state from then on.
    void Opens(const char* menu) const { QMetaObject::invokeMethod(&Menu(menu), "aboutToShow"); }
    /// Captions of the menu bar without mnemonics.
    QStringList MenuTitles() const {
        QStringList titles;
        for (const QAction* action : bench->Window().menuBar()->actions()) {
            titles << action->text().remove('&');
        }
        return titles;
    }
    QString Title() const { return bench->Window().windowTitle(); }

    GlobalsGuard globals;
    TempFolder folder;
    FakeServices services;
    ScriptedUser user;
    std::unique_ptr<review::Workbench> bench;
};

} // namespace orvanta::test
