// SPDX-License-Identifier: GPL-3.0-or-later
// XML, written as a stream: the numbers of a spectra file never exist as a tree.
#pragma once

#include "spectra_contract/api.h"

#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orvanta::spectral {

/// Writes one XML document, indented by two blanks a level. Names are taken as they are; text is escaped,
/// bytes that are not UTF-8 and characters that XML does not know become U+FFFD.
class ORVANTA_API XmlWriter {
public:
    using Attributes = std::initializer_list<std::pair<std::string_view, std::string_view>>;

    XmlWriter();
    void Open(std::string_view name, Attributes attributes = {});
    void Close();
    /// An element that holds text only.
    void Element(std::string_view name, std::string_view text, Attributes attributes = {});
    /// An element that holds numbers, separated by blanks; "n/a" for a value that is not finite.
    void Numbers(std::string_view name, std::span<const double> values);
    /// The document; every element must be closed.
    std::string Take();

private:
    void Begin(std::string_view name, Attributes attributes);
    void End(std::string_view name);
    void AppendText(std::string_view text, bool attribute);

    std::string text_;
    std::vector<std::string> open_;
};

} // namespace orvanta::spectral
