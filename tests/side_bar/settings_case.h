// SPDX-License-Identifier: GPL-3.0-or-later
// Settings, events and sensors that a test hands to the settings form.
#pragma once

#include "host/signal_base/sensors/sensor_impl.h"
#include "side_bar/spectrum_macro_form.h"
#include "spectra_contract/events.h"
#include "spectra_contract/spectra_macro.h"
#include "tests/support/qt/form_user.h"

#include <QLocale>

#include <memory>
#include <string>
#include <utility>

namespace orvanta::test {

/// The user's numerals are those of this language while it lives.
class NumeralsOf {
public:
    explicit NumeralsOf(QLocale::Language language) { QLocale::setDefault(QLocale(language)); }
    ~NumeralsOf() { QLocale::setDefault(earlier_); }
    NumeralsOf(const NumeralsOf&) = delete;
    NumeralsOf& operator=(const NumeralsOf&) = delete;

private:
    QLocale earlier_;
};

/// One sensor with this acquisition rate.
inline SensorType SensorAt(double rateHz) {
    auto impl = std::make_unique<SensorType::Impl>();
    impl->rateHz = rateHz;
    return SensorType(std::move(impl));
}

/// The states Asleep (20 s and 10.6 s), Awake (5 s), bad (2 s) and the spots Spike (3 times) and Blink, at
/// 500 Hz.
struct SettingsCase {
    SettingsCase() {
        AddState("Asleep", 10, 20);
        AddState("Asleep", 50, 10.6);
        AddState("Awake", 35, 5);
        AddState("bad", 41, 2);
        for (const double time : {1.0, 2.0, 3.0}) {
            AddSpot("Spike", time);
        }
        AddSpot("Blink", 4);
    }

    void AddState(const std::string& label, double begin, double seconds) {
        events.Add({label, EventClass::State,
                    XTimeInterval(XTime::FromSeconds(begin), XTime::FromSeconds(begin + seconds))});
    }
    void AddSpot(const std::string& label, double time) {
        events.Add(
            {label, EventClass::Spot, XTimeInterval(XTime::FromSeconds(time), XTime::FromSeconds(time))});
    }

    NumeralsOf english{QLocale::English};
    SpectraMacro macro;
    EventsManager events{500};
    SensorType sensor = SensorAt(500);
    std::string folder;
};

/// The form as its caller opens it, on the screen.
class OpenForm : public TFormSpectrumMacro {
public:
    explicit OpenForm(SettingsCase& given, int mode = 2)
        : TFormSpectrumMacro(nullptr, given.folder.c_str(), &given.macro, &given.events, {&given.sensor},
                             mode) {
        show();
    }
    const FormUser user{*this};
};

} // namespace orvanta::test
