// SPDX-License-Identifier: GPL-3.0-or-later
// What the application asks of the module's classes. Implemented by a library that links the module, so that
// the application itself starts without either.
#pragma once

#include "host/toolkit/geometry.h"
#include "host/toolkit/window_handle.h"
#include "spectra_contract/sensor.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class EEGFileInfoType;
class EventsManager;
class GenericPlatform;
class GlobalWindow;
class QWidget;
class SpectMacroResult;
class SpectraMacro;
class SpectraMgr;
class TheChild;

namespace owl {
class TDC;
}

namespace orvanta::review {

struct MapsPage;
struct SpectrumLook;
struct SpectrumPage;

/// Shows a window, takes its picture and hides it.
using TakePicture = std::function<void(QWidget&)>;

/// A window for the gallery.
struct GalleryPage {
    std::string name; ///< fit for a file name
    /// Makes the window, fills it and hands it over.
    std::function<void(const TakePicture&)> show;
};

/// What the windows of the gallery show. Must outlive their pages.
struct GallerySample {
    EEGFileInfoType& recording;
    GenericPlatform& platform; ///< with some macros in its folder
};

/// One map of the maps view.
struct DrawnMap {
    std::string title;
    owl::TRect area; ///< empty when the map has no place
};

/// Called for each frame of a cartoon. \param frame from 0 \param draw may be called once
using TakeFrame =
    std::function<void(std::uint64_t frame, std::uint64_t count, const std::function<void(owl::TDC&)>& draw)>;

/// One plot of the spectrum view.
struct DrawnPlot {
    std::string trace; ///< empty for an empty slot
    owl::TRect slot;   ///< empty when the trace has no place
};

/// GUI thread. What is passed in is not owned and is used only during the call; a parent may be null.
class ModuleBridge {
public:
    virtual ~ModuleBridge() = default;

    /// Lets the user edit one macro, which saves to its file.
    /// \param folder for a file with another name, with the separator at its end
    /// \param mode 0 for looking only, 2 to edit
    virtual void EditMacro(HWND parent, const std::string& folder, SpectraMacro& macro, EventsManager* events,
                           const SensorList& sensors, int mode) = 0;
    /// Lets the user choose, make, edit and erase macros in the platform's folder.
    /// \param macro becomes the chosen one
    /// \return 0 cancelled, 1 chosen, 2 chosen by hand
    virtual std::int32_t SelectMacro(HWND parent, SpectraMacro& macro, EventsManager* events,
                                     const SensorList& sensors, int mode,
                                     const GenericPlatform& platform) = 0;
    /// Lets the user choose electrodes.
    /// \param parent of another class than owl::TWindow counts as none
    /// \param selected at first; replaced on OK only
    /// \return false when the user cancelled
    virtual bool ChooseElectrodes(HWND parent, SensorList& selected, const SensorList& all) = 0;
    /// Draws the spectrum view of analyses that are computed, of the size given.
    /// \param window its settings of the view become those of the page
    /// \param manager of \p recording's analyses
    /// \return the plots, in the order of the view
    virtual std::vector<DrawnPlot> DrawSpectrum(GlobalWindow& window, EEGFileInfoType& recording,
                                                SpectraMgr& manager, const SpectrumPage& page,
                                                const owl::TSize& size, owl::TDC& dc) = 0;
    /// Draws the maps view of an analysis that is computed, of the size given.
    /// \param window its settings of the view become those of the page
    /// \param manager of \p recording's analyses
    /// \return the maps of the page, in its order
    virtual std::vector<DrawnMap> DrawMaps(GlobalWindow& window, EEGFileInfoType& recording,
                                           SpectraMgr& manager, const MapsPage& page, const owl::TSize& size,
                                           owl::TDC& dc) = 0;
    /// Draws it as a cartoon of the page's first map: a frame for each epoch, or each stretch of epochs where
    /// the page has room for several, in their order. Ends with what \p take throws.
    virtual void DrawCartoon(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                             const MapsPage& page, const owl::TSize& size, const TakeFrame& take) = 0;

    /// A view that its main window owns; recording and manager must outlive it.
    virtual TheChild* MakeSpectrumView(GlobalWindow& window, EEGFileInfoType& recording,
                                       SpectraMgr& manager) = 0;
    /// The same. \param threeD maps on heads
    virtual TheChild* MakeMapsView(GlobalWindow& window, EEGFileInfoType& recording, SpectraMgr& manager,
                                   bool threeD) = 0;
    /// Lets a view show analyses of the montage that is in use now, and its tool bar name it. Computes
    /// nothing.
    virtual void FollowMontage(TheChild& view, const EEGFileInfoType& recording) = 0;
    /// What was chosen in a spectrum view that its next view would not know. \param view none of another kind
    virtual SpectrumLook LookOf(const TheChild& view) = 0;
    /// Chooses it in this one. Computes nothing.
    virtual void Choose(TheChild& view, const SpectrumLook& look) = 0;
    /// Computes what a view of analyses shows and is not up to date, draws it anew, and lets its panels fill
    /// themselves. The view may be gone afterwards.
    virtual void RefreshView(TheChild& view) = 0;
    /// Lets the message bar tell what of the recording the main analysis has analysed.
    /// \param view none of another kind than a spectrum view
    virtual void TellOfAnalysis(const TheChild& view) = 0;
    /// Lets the user choose the settings of a new analysis and appends it, not yet computed.
    /// \return 1 appended, 2 chosen by hand (nothing appended), -2 cancelled
    virtual std::int32_t CreateNewSpectrum(const GenericPlatform& platform, HWND parent, SpectraMgr& manager,
                                           EEGFileInfoType& recording) = 0;
    /// Computes an analysis. Failures are told through the platform's GUI.
    virtual void PerformComputation(const GenericPlatform& platform, HWND parent, SpectMacroResult& analysis,
                                    EEGFileInfoType& recording) = 0;

    virtual std::vector<GalleryPage> MakeGalleryPages(const GallerySample& sample) = 0;
};

/// The bridge library's one function; the bridge lives as long as the library.
using BridgeEntry = ModuleBridge*();

/// File of the library, beside the host libraries, and the function's name.
constexpr const char* kBridgeLibrary = "liborvanta_bridge.so";
constexpr const char* kBridgeEntry = "OrvantaBridge";

} // namespace orvanta::review
