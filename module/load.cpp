// SPDX-License-Identifier: GPL-3.0-or-later
// What runs when the library is loaded and unloaded.
#include "module/module_object.h"

namespace {

/// Attached as long as the library is loaded. An object, not a pair of loader functions: so it ends before
/// the objects that it made, at unloading as well as at the end of the process.
class Loaded {
public:
    Loaded() { orvanta::module::Attach(owl::InstanceOf(this)); }
    ~Loaded() { orvanta::module::Detach(); }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;
};

const Loaded loaded;

} // namespace
