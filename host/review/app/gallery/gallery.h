// SPDX-License-Identifier: GPL-3.0-or-later
// orvanta gallery: a picture of every form and dialog.
#pragma once

#include "host/review/app/module_bridge.h"
#include "host/review/app/review_entry.h"

namespace orvanta::review {

/// "NAME-light-1x.png", "NAME-dark-1.5x.png".
std::string PictureName(const std::string& page, Style style, double scale);

/// The pages of these names, all when there are none. \throws cli::UsageError for a name that is no page's
std::vector<GalleryPage> ChoosePages(std::vector<GalleryPage> pages, const std::vector<std::string>& names);

/// Takes pictures of the pages in the style and at the scale that are set, into an existing folder.
/// \return the files, in the order of the pages
std::vector<std::string> TakePictures(const std::vector<GalleryPage>& pages, const std::string& folder,
                                      Style style, double scale);

/// The whole command. \return exit status
int RunGallery(const GalleryRequest& request);

} // namespace orvanta::review
