// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "host/IProjectEvent.h"
#include "host/IProjectNode.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"

#include "pluginterfaces/base/fvariant.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace wybeta::simulator {

// An event of a part: a note, or anything else that a part can hold.
class Event : public Implements<TreeItem, host::IPartEvent, host::IProjectNode, host::IProjectEvent,
                                host::IProjectNoteEvent> {
public:
    enum class Kind { Note, Other };

    explicit Event(SharedState state, Kind kind = Kind::Note);

    // Times are counted from the start of the part.
    double startInPart = 0;
    double duration = 1;
    Steinberg::int32 pitch = 0;
    // Whether a lyric typed into the note starts a division.
    bool flagged = false;
    // When set, answers for the attributes in place of the texts below.
    std::function<Steinberg::tresult(std::string_view key, Steinberg::FVariant& value)> attributes;

    // Texts are UTF-8; an attribute that was never set is absent to the module.
    std::string text(std::string_view key) const;
    void setText(std::string_view key, std::string_view utf8);
    void setUtf16(std::string_view key, std::u16string text);
    std::string lyric() const { return text("lyrics"); }
    void setLyric(std::string_view utf8) { setText("lyrics", utf8); }

    // Stops (or goes on) answering IProjectNoteEvent.
    void setKind(Kind kind) { kind_ = kind; }

    host::IProjectItem* ownInterface() override { return static_cast<host::IPartEvent*>(this); }
    host::IProjectNode* node() { return this; }

    bool PLUGIN_API isKind(Steinberg::FIDString kind) override;
    bool PLUGIN_API isFlagged() override;
    double PLUGIN_API start(Steinberg::FUnknown* timeContext) override;
    double PLUGIN_API length(Steinberg::FUnknown* timeContext) override;
    host::IProjectNodeIterator* PLUGIN_API children() override;
    Steinberg::int32 PLUGIN_API value() override;
    Steinberg::tresult PLUGIN_API setAttribute(Steinberg::FIDString key, Steinberg::FVariant* value,
                                               Steinberg::TPtrInt reserved1,
                                               Steinberg::TPtrInt reserved2) override;
    Steinberg::tresult PLUGIN_API getAttribute(Steinberg::FIDString key,
                                               Steinberg::FVariant* value) override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    const std::u16string* find(std::string_view key) const;

    Kind kind_;
    std::vector<std::pair<std::string, std::u16string>> texts_;
};

} // namespace wybeta::simulator
