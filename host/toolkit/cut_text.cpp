// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/toolkit/cut_text.h"

namespace owl {

std::string CutAt(std::string text, std::size_t bytes) {
    if (text.size() > bytes) {
        while (bytes > 0 && (static_cast<unsigned char>(text[bytes]) & 0xC0U) == 0x80U) {
            --bytes;
        }
        text.resize(bytes);
    }
    return text;
}

} // namespace owl
