// SPDX-License-Identifier: GPL-3.0-or-later
// The module, loaded by file name as a host does.
#pragma once

#include "spectra_contract/module_entry.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdint>

namespace owl {
class TDocTemplate;
class TModule;
} // namespace owl

namespace orvanta::test {

/// Loaded while it lives. A library or symbol that is missing fails the test and ends the program.
class LoadedModule {
public:
    LoadedModule() : handle_(dlopen(ORVANTA_MODULE_FILE, RTLD_NOW | RTLD_LOCAL)) {
        if (handle_ == nullptr) {
            GTEST_LOG_(FATAL) << dlerror();
        }
    }
    ~LoadedModule() { dlclose(handle_); }
    LoadedModule(const LoadedModule&) = delete;
    LoadedModule& operator=(const LoadedModule&) = delete;

    static bool IsInMemory() {
        void* handle = dlopen(ORVANTA_MODULE_FILE, RTLD_NOW | RTLD_NOLOAD);
        return handle != nullptr && dlclose(handle) == 0;
    }

    owl::TModule** GetModulePtr(std::uint32_t version) const {
        return Symbol<owl::TModule**(std::uint32_t)>("GetModulePtr")(version);
    }
    owl::TDocTemplate** GetDocTemplateHead(std::uint32_t version) const {
        return Symbol<owl::TDocTemplate**(std::uint32_t)>("GetDocTemplateHead")(version);
    }
    std::int32_t CreateNewSpectrum(const GenericPlatform* platform, HWND parent, SpectraMgr& manager,
                                   EEGFileInfoType* recording) const {
        return Symbol<decltype(::CreateNewSpectrum)>(
            "_Z17CreateNewSpectrumPK15GenericPlatform4HWNDR10SpectraMgrP15EEGFileInfoType")(
            platform, parent, manager, recording);
    }
    std::int32_t PerformComputation(const GenericPlatform* platform, HWND parent, SpectMacroResult* analysis,
                                    EEGFileInfoType* recording) const {
        return Symbol<decltype(::PerformComputation)>(
            "_Z18PerformComputationPK15GenericPlatform4HWNDP16SpectMacroResultP15EEGFileInfoType")(
            platform, parent, analysis, recording);
    }

private:
    template <class Function>
    Function* Symbol(const char* name) const {
        auto* function = reinterpret_cast<Function*>(dlsym(handle_, name));
        if (function == nullptr) {
            GTEST_LOG_(FATAL) << dlerror();
        }
        return function;
    }

    void* handle_;
};

} // namespace orvanta::test
