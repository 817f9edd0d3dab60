// SPDX-License-Identifier: GPL-3.0-or-later
// Asks for size, resolution and format of a picture.
#pragma once

#include "host/review/app/pictures_out/picture_settings.h"
#include "host/toolkit/form.h"

#include <memory>

namespace Ui {
class TFormPictureSize;
}

namespace orvanta::review {

/// It closes with OK only for a picture that there can be, and says what is wrong until then.
class PictureDialog final : public owl::TForm {
public:
    PictureDialog(HWND parent, const PictureSettings& settings);
    ~PictureDialog() override;

    const PictureSettings& Settings() const { return settings_; }

private:
    void ShowLengths();
    void ShowSize();
    void TakeUnit(LengthUnit unit);
    void TakeResolution(int resolution);
    void TakeWidth(double length);
    void TakeHeight(double length);

    PictureSettings settings_;
    double proportion_; ///< height to width
    std::unique_ptr<Ui::TFormPictureSize> ui_;
};

} // namespace orvanta::review
