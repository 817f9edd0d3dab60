// SPDX-License-Identifier: GPL-3.0-or-later
// A picture of the head, drawn without the help of a graphics card.
#pragma once

#include "host/chart_view/topography/head_mesh.h"
#include "host/chart_view/topography/palettes.h"
#include "host/toolkit/dc.h"

#include <optional>
#include <span>

namespace orvanta::chart {

/// From where one looks, in degrees. Up on the picture is up on the head, from the vertex on the nose.
struct HeadView {
    double azimuth = 180;  ///< 0 from the front, 90 from the right ear, 180 from behind
    double elevation = 90; ///< 90 from above, 0 level

    bool operator==(const HeadView&) const = default;
};

inline constexpr HeadView kTopView{180, 90};
inline constexpr HeadView kFrontView{0, 0};
inline constexpr HeadView kLeftView{270, 0};
inline constexpr HeadView kRightView{90, 0};
inline constexpr HeadView kBackView{180, 0};

/// The view after the mouse was dragged by so many pixels over a picture of this size: half a turn across it.
/// The head never turns upside down.
ORVANTA_API HeadView Dragged(const HeadView& view, int dx, int dy, int size);

/// A point of the head on the picture.
struct SeenPoint {
    double x = 0, y = 0; ///< pixels from the upper left corner
    bool front = false;  ///< on the side that is seen
};
/// \param direction of the point on the surface \param size side of the picture
ORVANTA_API SeenPoint Seen(const HeadPosition& direction, const HeadView& view, int size);

/// What a picture of the head shows.
struct HeadScene {
    const HeadMesh& mesh;
    /// Finite, one for each corner of the mesh. Empty for a head of skin.
    std::span<const float> values;
    /// One for each corner: the values are shown where this is above 0, skin elsewhere.
    std::span<const float> covers;
    /// One for each corner: striped with skin where this is above 0. Empty for nowhere.
    std::span<const float> beyond;
    const Colors& colors;
    double low = 0, high = 1; ///< the scale
    HeadView view;
    /// 1 hides what is behind; below, the inner side of the far half shows through, and what is behind that.
    double opacity = 1;
    int size = 200;        ///< side, pixels
    int samples = 2;       ///< per pixel along each side: 1 while the head is being turned
    int contours = 0;      ///< lines between the ends of the scale
    double pixelRatio = 1; ///< pixels to a logical one: the width of lines
};

/// Lit from above the viewer's left shoulder; transparent around the head.
ORVANTA_API owl::TImage PictureOf(const HeadScene& scene);

} // namespace orvanta::chart
