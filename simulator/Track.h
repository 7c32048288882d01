// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectTrack.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"

#include <string>
#include <utility>
#include <vector>

namespace wybeta::simulator {

// A plug-in that a track plays through.
class Plugin : public Implements<HostObject, host::IVoiceSynthesizer> {
public:
    enum class Kind { VoiceSynthesizer, Other };

    Plugin(SharedState state, Kind kind) : Implements(std::move(state), "Plugin"), kind_(kind) {}

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    Kind kind_;
};

// An object in the device tree of a track; with a plug-in slot, it answers IProjectPluginSlot.
class Element : public Implements<HostObject, host::IProjectElement, host::IProjectPluginSlot> {
public:
    Element(SharedState state, std::string type)
        : Implements(std::move(state), "Element"), type_(std::move(type)) {}

    // Null in the list is an element that is handed out as null.
    void add(Handle<Element> element) { elements_.push_back(std::move(element)); }
    // Makes this a plug-in slot, with a plug-in or empty.
    void holdPlugin(Handle<Plugin> plugin);

    Steinberg::FIDString PLUGIN_API typeName() override;
    Steinberg::int32 PLUGIN_API countElements() override;
    host::IProjectElement* PLUGIN_API element(Steinberg::int32 index) override;
    Steinberg::FUnknown* PLUGIN_API plugin() override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    std::string type_;
    std::vector<Handle<Element>> elements_;
    bool isPluginSlot_ = false;
    Handle<Plugin> plugin_;
};

class Track : public Implements<TreeNode, host::IProjectTrack> {
public:
    explicit Track(SharedState state, std::string kind = "instrument")
        : Implements(std::move(state), "Track", std::move(kind)) {}

    void setDevice(Handle<Element> device) { device_ = std::move(device); }

    host::IProjectElement* PLUGIN_API deviceElement() override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    Handle<Element> device_;
};

// The device tree of an ordinary instrument track: a "Slot" with one element that holds the
// plug-in.
Handle<Element> makeDevice(const SharedState& state, Plugin::Kind plugin);

// An instrument track that sings.
Handle<Track> makeVoiceTrack(const SharedState& state);

} // namespace wybeta::simulator
