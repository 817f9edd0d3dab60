// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/review/app/gallery/host_pages.h"

#include "host/chart_view/maps/dialogs/map_settings.h"
#include "host/chart_view/maps/dialogs/palette_chooser.h"
#include "host/review/app/events/event_dialog.h"
#include "host/review/app/events/event_list.h"
#include "host/review/app/gallery/picture.h"
#include "host/review/app/gui.h"
#include "host/review/app/montage/montage_editor.h"
#include "host/review/app/pictures_out/picture_dialog.h"
#include "host/review/app/progress_box.h"
#include "host/toolkit/input_dialog.h"
#include "host/toolkit/modal_gateway.h"

namespace orvanta::review {

namespace {

constexpr int kUsualResolution = 96;
constexpr int kFinestResolution = 1200;

GalleryPage MessagePage(const std::string& name, const std::string& text, const std::string& caption,
                        unsigned type) {
    return {name, [=](const TakePicture& take) {
                LookAtModal([=] { owl::CurrentModalGateway().ShowMessage(nullptr, text, caption, type); },
                            take);
            }};
}

void ShowProgress(const TakePicture& take) {
    ProgressBox box("Computing Spectra...", nullptr);
    box.SetPosition(0.42);
    take(box.Window());
}

void ShowFiles(const TakePicture& take) {
    ProgressBox box("Saving spectra: 14 of 60: Eyes closed_Patient 7_Hamming_2_50_night.edf.xml", nullptr);
    box.SetPosition(0.23);
    take(box.Window());
}

void ShowInput(const TakePicture& take) {
    owl::TInputDialog box(nullptr, {"New Macro", "Macro name:", "Eyes closed", 255});
    take(box);
}

XTimeInterval Stretch(double begin, double end) {
    return {XTime::FromSeconds(begin), XTime::FromSeconds(end)};
}

void ShowEvent(EEGFileInfoType& recording, const EventRecord& event, const TakePicture& take) {
    const EventEditor editor(recording);
    EventDialog dialog(nullptr, editor, event, EventDialog::Purpose::Add);
    take(dialog);
}

void ShowEvents(EEGFileInfoType& recording, const TakePicture& take) {
    EventEditor editor(recording);
    editor.Add({"Artifact", EventClass::State, Stretch(12.25, 13.5)});
    const std::size_t spike = editor.Add({"Spike", EventClass::Spot, Stretch(14, 14)});
    EventListPanel panel(nullptr, editor, {});
    constexpr int kWidth = 560;
    constexpr int kHeight = 360;
    panel.resize(kWidth, kHeight);
    panel.SelectEvent(spike);
    take(panel);
    editor.Undo();
    editor.Undo();
}

/// One montage being typed, with a channel that is not there.
void ShowMontages(EEGFileInfoType& recording, const std::string& lastLine, const TakePicture& take) {
    const std::string channels = "Fp1-F3 = +Fp1 -F3\nF3-C3  = +F3 -C3\nC3-P3  = +C3 -P3\n";
    MontageEditor editor(
        nullptr, {{"Frontal and central", channels + lastLine}, {"Vertex", "Cz = Cz -0.5*A1 -0.5*A2\n"}},
        &recording);
    take(editor);
}

void ShowPalettes(const TakePicture& take) {
    LookAtModal([] { chart::ChoosePalette(nullptr, "inferno"); }, take);
}

void ShowMapSettings(const TakePicture& take) {
    LookAtModal(
        [] {
            chart::MapSettings settings;
            chart::EditMapSettings(nullptr, settings);
        },
        take);
}

/// A picture of 1280 x 720 logical pixels.
void ShowPictureSize(PictureFormat format, int resolution, const TakePicture& take) {
    constexpr double kWidth = 1280;
    constexpr double kHeight = 720;
    PictureDialog dialog(nullptr,
                         {.format = format, .resolution = resolution, .width = kWidth, .height = kHeight});
    take(dialog);
}

} // namespace

std::vector<GalleryPage> MakeHostPages(const GallerySample& sample) {
    EEGFileInfoType& recording = sample.recording;
    return {
        MessagePage("message-error", "Unable to save the macro file:\n/home/user/MACRO/Eyes closed.smx",
                    "Error", owl::kMbOk | owl::kMbIconStop),
        MessagePage("message-warning", "No Matched Events. Default selection made", "Warning",
                    owl::kMbOk | owl::kMbIconExclamation),
        MessagePage("message-question", "A macro with this name already exists. Do you want to overwrite it?",
                    "Warning", owl::kMbYesNo | owl::kMbIconExclamation),
        MessagePage("message-plain", "Macro file changes discarded", "Warning", owl::kMbOk),
        {"progress", ShowProgress},
        {"progress-files", ShowFiles},
        {"input", ShowInput},
        {"event",
         [&recording](const TakePicture& take) {
             ShowEvent(recording, {"Artifact", EventClass::State, Stretch(12.25, 13.5)}, take);
         }},
        {"event-wrong",
         [&recording](const TakePicture& take) {
             ShowEvent(recording, {"Artifact", EventClass::Spot, Stretch(-1, -1)}, take);
         }},
        {"event-list", [&recording](const TakePicture& take) { ShowEvents(recording, take); }},
        {"montages",
         [&recording](const TakePicture& take) { ShowMontages(recording, "P3-O1  = +P3 -O1\n", take); }},
        {"montages-wrong",
         [&recording](const TakePicture& take) { ShowMontages(recording, "P3-O1  = +P3 O1\n", take); }},
        {"map-palette", ShowPalettes},
        {"map-settings", ShowMapSettings},
        {"picture-size",
         [](const TakePicture& take) { ShowPictureSize(PictureFormat::Svg, kUsualResolution, take); }},
        {"picture-size-wrong",
         [](const TakePicture& take) { ShowPictureSize(PictureFormat::Png, kFinestResolution, take); }},
    };
}

} // namespace orvanta::review
