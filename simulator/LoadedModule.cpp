// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/LoadedModule.h"

#include <stdexcept>
#include <string>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace wybeta::simulator {

namespace {

#ifdef _WIN32
using NativeHandle = HMODULE;

NativeHandle openLibrary(const std::filesystem::path& path) {
    return LoadLibraryW(path.c_str());
}

void closeLibrary(NativeHandle handle) {
    FreeLibrary(handle);
}

void* findExport(NativeHandle handle, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(handle, name));
}

std::string lastError() {
    return "system error " + std::to_string(GetLastError());
}
#else
using NativeHandle = void*;

NativeHandle openLibrary(const std::filesystem::path& path) {
    return dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
}

void closeLibrary(NativeHandle handle) {
    dlclose(handle);
}

void* findExport(NativeHandle handle, const char* name) {
    return dlsym(handle, name);
}

std::string lastError() {
    const char* const message = dlerror();
    return message != nullptr ? message : "no reason was given";
}
#endif

} // namespace

struct LoadedModule::Library {
    explicit Library(const std::filesystem::path& path) : handle(openLibrary(path)) {
        if (handle == nullptr) {
            throw std::runtime_error("expected a module in the file " + path.string() +
                                     ", could not load it: " + lastError());
        }
    }
    ~Library() { closeLibrary(handle); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    template <class Function>
    void bind(Function& function, const char* name) const {
        function = reinterpret_cast<Function>(findExport(handle, name));
        if (function == nullptr) {
            throw std::runtime_error(std::string("expected the module to export ") + name +
                                     ", found no such export");
        }
    }

    NativeHandle handle;
};

LoadedModule::LoadedModule(const std::filesystem::path& path)
    : library_(std::make_unique<Library>(std::filesystem::absolute(path))) {
    library_->bind(exports_.getPluginFactory, "GetPluginFactory");
    library_->bind(exports_.initDll, "InitDll");
    library_->bind(exports_.exitDll, "ExitDll");
}

LoadedModule::~LoadedModule() = default;

} // namespace wybeta::simulator
