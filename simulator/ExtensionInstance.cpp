// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/ExtensionInstance.h"

#include "host/Query.h"

#include <stdexcept>
#include <string>

namespace wybeta::simulator {

namespace {

using Steinberg::IPtr;

IPtr<Steinberg::IPluginBase> create(Steinberg::IPluginFactory& factory) {
    Steinberg::PClassInfo info;
    if (factory.getClassInfo(0, &info) != Steinberg::kResultOk) {
        throw std::runtime_error("expected the factory to list a class, found none");
    }
    void* object = nullptr;
    if (factory.createInstance(info.cid, Steinberg::IPluginBase_iid, &object) !=
        Steinberg::kResultOk) {
        throw std::runtime_error(std::string("expected the factory to create ") + info.name +
                                 ", it did not");
    }
    return Steinberg::owned(static_cast<Steinberg::IPluginBase*>(object));
}

template <class I>
IPtr<I> faceOf(Steinberg::FUnknown& object, const char* name) {
    auto face = host::query<I>(&object);
    if (!face) {
        throw std::runtime_error(std::string("expected the extension to answer ") + name +
                                 ", it does not");
    }
    return face;
}

} // namespace

ExtensionInstance::ExtensionInstance(Steinberg::IPluginFactory& factory)
    : base_(create(factory)),
      notification_(faceOf<host::IProjectNotification3>(*base_, "IProjectNotification3")),
      storage_(faceOf<host::IProjectStorageNotification>(*base_, "IProjectStorageNotification")),
      editHook_(faceOf<host::IProjectEditHook>(*base_, "IProjectEditHook")) {}

} // namespace wybeta::simulator
