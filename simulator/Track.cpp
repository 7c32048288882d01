// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/Track.h"

#include "host/InterfaceId.h"

#include <cstddef>

namespace wybeta::simulator {

void* Plugin::interfaceFor(const Steinberg::TUID id) {
    const bool answers =
        host::sameId(id, Steinberg::FUnknown_iid) ||
        (kind_ == Kind::VoiceSynthesizer && host::sameId(id, host::IVoiceSynthesizer::iid));
    return answers ? static_cast<host::IVoiceSynthesizer*>(this) : nullptr;
}

void Element::holdPlugin(Handle<Plugin> plugin) {
    isPluginSlot_ = true;
    plugin_ = std::move(plugin);
}

Steinberg::FIDString Element::typeName() {
    return enter("IProjectElement.typeName") == Answer::Refuse ? nullptr : type_.c_str();
}

Steinberg::int32 Element::countElements() {
    return enter("IProjectElement.countElements") == Answer::Refuse
               ? 0
               : static_cast<Steinberg::int32>(elements_.size());
}

host::IProjectElement* Element::element(Steinberg::int32 index) {
    const auto place = static_cast<std::size_t>(index);
    if (enter("IProjectElement.element") == Answer::Refuse || place >= elements_.size()) {
        return nullptr;
    }
    return handOver<host::IProjectElement>(elements_[place].get());
}

Steinberg::FUnknown* Element::plugin() {
    return enter("IProjectPluginSlot.plugin") == Answer::Refuse ? nullptr : plugin_.get();
}

void* Element::interfaceFor(const Steinberg::TUID id) {
    if (host::sameId(id, Steinberg::FUnknown_iid)) {
        return static_cast<host::IProjectElement*>(this);
    }
    return isPluginSlot_ && host::sameId(id, host::IProjectPluginSlot::iid)
               ? static_cast<host::IProjectPluginSlot*>(this)
               : nullptr;
}

host::IProjectElement* Track::deviceElement() {
    return enter("IProjectTrack.deviceElement") == Answer::Refuse
               ? nullptr
               : handOver<host::IProjectElement>(device_.get());
}

void* Track::interfaceFor(const Steinberg::TUID id) {
    return host::sameId(id, host::IProjectTrack::iid) ? static_cast<host::IProjectTrack*>(this)
                                                      : TreeNode::interfaceFor(id);
}

Handle<Element> makeDevice(const SharedState& state, Plugin::Kind plugin) {
    const auto holder = makeHandle<Element>(state, "Instrument");
    holder->holdPlugin(makeHandle<Plugin>(state, plugin));
    const auto slot = makeHandle<Element>(state, "Slot");
    slot->add(holder);
    auto device = makeHandle<Element>(state, "Device");
    device->add(makeHandle<Element>(state, "Inserts"));
    device->add(slot);
    return device;
}

Handle<Track> makeVoiceTrack(const SharedState& state) {
    auto track = makeHandle<Track>(state);
    track->setDevice(makeDevice(state, Plugin::Kind::VoiceSynthesizer));
    return track;
}

} // namespace wybeta::simulator
