// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/exports.h"

#include "host/toolkit/version.h"
#include "module/module_object.h"

namespace {

owl::TDocTemplate* docTemplateHead = nullptr;

bool IsSameRelease(std::uint32_t version) {
    return (version ^ owl::OWLGetVersion()) < 0x100000;
}

} // namespace

owl::TModule** GetModulePtr(std::uint32_t version) {
    return IsSameRelease(version) ? orvanta::module::ModulePointer() : nullptr;
}

owl::TDocTemplate** GetDocTemplateHead(std::uint32_t version) {
    return IsSameRelease(version) ? &docTemplateHead : nullptr;
}
