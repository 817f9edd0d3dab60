// SPDX-License-Identifier: GPL-3.0-or-later
// What the command line asks of the library with the windows, which it loads at run time. No Qt here.
#pragma once

#include "host/review/app/maps_page.h"
#include "host/review/app/spectrum_page.h"
#include "host/review/cli/analysis_run.h"

#include <string>
#include <variant>
#include <vector>

namespace orvanta::review {

enum class Style { OfTheSystem, Light, Dark };

/// Edit one macro file, or the user's macros.
struct EditMacroRequest {
    std::string file;      ///< empty for the macro library
    std::string recording; ///< gives events and sensors; may be empty
    Style style = Style::OfTheSystem;
};

/// Take pictures of every form and dialog.
struct GalleryRequest {
    std::string out;               ///< folder
    std::vector<double> scales{1}; ///< device pixels per logical pixel
    std::string language = "en";
    std::vector<std::string> only; ///< names of windows; all when empty
};

/// Of which analysis a picture is, and its file.
struct PictureRequest {
    cli::AnalysisArguments analysis; ///< without results as data
    std::string macro;               ///< of the main analysis; empty for the default settings
    std::vector<std::string> assignments;
    int width = 1600; ///< pixels before scaling, one being 1/96 inch
    int height = 1000;
    double scale = 1; ///< device pixels to a pixel
    std::string out;  ///< ends in .png, .svg or .pdf
};

/// Draw a page of the spectrum view into a file.
struct RenderRequest : PictureRequest {
    std::string secondary; ///< macro that the main analysis is compared with; may be empty
    double pThreshold = 0.05;
    bool tTest = true;
    bool ratio = false;
    SpectrumPage page;
};

/// Draw a page of the maps view into a file.
struct RenderMapsRequest : PictureRequest {
    MapsPage page;
};

/// Draw the maps view for one epoch after the other, into a file that ends in .mp4 or .webm, or into a
/// folder.
struct RenderCartoonRequest : PictureRequest {
    MapsPage page;
    double framesPerSecond = 25;
};

/// Open the review application.
struct ReviewRequest {
    std::string file;     ///< empty for the last one
    std::string macro;    ///< name or file of the first analysis; empty for none
    std::string language; ///< of the texts, for this time; empty for the user's choice
    std::string picture;  ///< PNG file for the window, which is not shown then; empty to show it
    Style style = Style::OfTheSystem;
    bool safeMode = false; ///< settings, session and layout are neither read nor kept
    std::string log;       ///< file that messages are appended to; empty for none
};

using Request = std::variant<EditMacroRequest, GalleryRequest, RenderRequest, RenderMapsRequest,
                             RenderCartoonRequest, ReviewRequest>;

/// The library's one function. Results go to standard output. \return the exit status; failures are thrown
/// as the commands throw them
using Entry = int(const Request& request);

/// File of the library, beside the host libraries, and the function's name.
constexpr const char* kLibrary = "liborvanta_review.so";
constexpr const char* kEntry = "OrvantaReview";

} // namespace orvanta::review
