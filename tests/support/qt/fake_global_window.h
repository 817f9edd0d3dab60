// SPDX-License-Identifier: GPL-3.0-or-later
// A main window that writes down what its children ask of it. For tests that link the chart view library.
#pragma once

#include "host/chart_view/global_window.h"
#include "host/chart_view/side_bar_manager.h"
#include "spectra_contract/platform.h"
#include "tests/support/map_user.h"
#include "tests/support/recording_gui.h"

#include <cmath>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace orvanta::test {

/// Settings in memory; progress displays are those of its GUI.
class FakePlatform final : public GenericPlatform {
public:
    void FloatToStrLoc(char* buffer, int size, double value, int decimals) const override {
        if (onNumber) {
            onNumber(value);
        }
        std::snprintf(buffer, static_cast<std::size_t>(size), std::isfinite(value) ? "%.*f" : "n/a", decimals,
                      value);
    }
    const GenericGUI* GetGUI() const override { return &gui; }
    UserType* GetUser() const override { return &user; }
    void ReadString(const char* section, const char* key, const char* defaultValue, char* buffer,
                    int maxLength) const override {
        const std::string name = std::string(section) + "/" + key;
        defaults[name] = defaultValue;
        const auto found = texts.find(name);
        const std::string text = found == texts.end() ? defaultValue : found->second;
        std::snprintf(buffer, static_cast<std::size_t>(maxLength) + 1, "%s", text.c_str());
    }
    void WriteString(const char* section, const char* key, const char* value) override {
        texts[std::string(section) + "/" + key] = value;
    }
    GenericProgress* CreateProgress(const char* text, const MSWindow& parent) const override {
        progressParent = parent.Handle();
        return gui.CreateProgress(text).release();
    }
    std::string GetAppFolder(const char* name) const override { return std::string(name) + "/"; }

    RecordingGui gui;
    mutable MapUser user;
    std::map<std::string, std::string> texts;            ///< by "section/key"
    mutable std::map<std::string, std::string> defaults; ///< of the texts that were asked for
    std::function<void(double)> onNumber;                ///< called before a number becomes text
    mutable HWND progressParent;                         ///< of the progress display made last
};

class FakeSideBar final : public SideBarManager {
public:
    void AddPanel(QWidget& /*panel*/, bool show, bool activate) override {
        calls.push_back(std::string("add ") + (show ? "true " : "false ") + (activate ? "true" : "false"));
    }
    void RemovePanel(QWidget& /*panel*/) override { calls.emplace_back("remove"); }
    void Update() override { calls.emplace_back("update"); }

    std::vector<std::string> calls; ///< in order
};

class FakeGlobalWindow final : public GlobalWindow {
public:
    GenericPlatform* GetPlatform() const override { return &platform; }
    std::string GetErrorStr() const override { return "Error"; }
    bool IsQuiet() const override { return quiet; }
    void SetMessageText(const std::string& text) override { messages.push_back(text); }
    SideBarManager& GetSideBar() override { return sideBar; }
    void PointAtTime(const XTime& time) override { times.push_back(time); }
    void PointAtChannel(const std::string& name) override { channels.push_back(name); }

    mutable FakePlatform platform;
    FakeSideBar sideBar;
    bool quiet = false;
    std::vector<std::string> messages; ///< of the message bar, in order
    std::vector<XTime> times;          ///< that were pointed at, in order
    std::vector<std::string> channels; ///< the same
};

} // namespace orvanta::test
