// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/Event.h"

#include "host/InterfaceId.h"

#include <utf8cpp/utf8.h>

#include <iterator>

namespace wybeta::simulator {

Event::Event(SharedState state, Kind kind) : Implements(std::move(state), "Event"), kind_(kind) {}

std::string Event::text(std::string_view key) const {
    std::string utf8;
    if (const auto* const text = find(key)) {
        utf8::utf16to8(text->begin(), text->end(), std::back_inserter(utf8));
    }
    return utf8;
}

void Event::setText(std::string_view key, std::string_view utf8) {
    std::u16string text;
    utf8::utf8to16(utf8.begin(), utf8.end(), std::back_inserter(text));
    setUtf16(key, std::move(text));
}

void Event::setUtf16(std::string_view key, std::u16string text) {
    for (auto& [name, value] : texts_) {
        if (name == key) {
            value = std::move(text);
            return;
        }
    }
    texts_.emplace_back(key, std::move(text));
}

bool Event::isKind(Steinberg::FIDString /*kind*/) {
    enter("IProjectItem.isKind");
    return false;
}

bool Event::isFlagged() {
    return enter("IPartEvent.isFlagged") != Answer::Refuse && flagged;
}

double Event::start(Steinberg::FUnknown* timeContext) {
    enter("IPartEvent.start");
    const auto* const context = dynamic_cast<TimeContext*>(timeContext);
    return context != nullptr ? context->partStart() + startInPart : startInPart;
}

double Event::length(Steinberg::FUnknown* /*timeContext*/) {
    enter("IPartEvent.length");
    return duration;
}

host::IProjectNodeIterator* Event::children() {
    enter("IProjectNode.children");
    return nullptr;
}

Steinberg::int32 Event::value() {
    enter("IProjectEvent.value");
    return pitch;
}

Steinberg::tresult Event::setAttribute(Steinberg::FIDString key, Steinberg::FVariant* value,
                                       Steinberg::TPtrInt reserved1, Steinberg::TPtrInt reserved2) {
    if (enter("IProjectNoteEvent.setAttribute") == Answer::Refuse) {
        return Steinberg::kResultFalse;
    }
    const bool isPlainText = value->type == Steinberg::FVariant::kString16;
    if (!isPlainText || value->string16 == nullptr || reserved1 != 0 || reserved2 != 0) {
        state()->ledger.fault(std::string("setAttribute was called with an unexpected value for ") +
                              key);
        return Steinberg::kInvalidArgument;
    }
    setUtf16(key, value->string16);
    return Steinberg::kResultOk;
}

Steinberg::tresult Event::getAttribute(Steinberg::FIDString key, Steinberg::FVariant* value) {
    if (enter("IProjectNoteEvent.getAttribute") == Answer::Refuse) {
        return Steinberg::kResultFalse;
    }
    if (attributes) {
        return attributes(key, *value);
    }
    const auto* const text = find(key);
    if (text == nullptr) {
        return Steinberg::kResultFalse;
    }
    value->type = Steinberg::FVariant::kString16;
    value->string16 = text->c_str();
    return Steinberg::kResultOk;
}

void* Event::interfaceFor(const Steinberg::TUID id) {
    if (host::sameId(id, Steinberg::FUnknown_iid)) {
        return static_cast<host::IPartEvent*>(this);
    }
    if (host::sameId(id, host::IProjectNode::iid)) {
        return static_cast<host::IProjectNode*>(this);
    }
    if (host::sameId(id, host::IProjectEvent::iid)) {
        return static_cast<host::IProjectEvent*>(this);
    }
    if (kind_ == Kind::Note && host::sameId(id, host::IProjectNoteEvent::iid)) {
        return static_cast<host::IProjectNoteEvent*>(this);
    }
    return nullptr;
}

const std::u16string* Event::find(std::string_view key) const {
    for (const auto& [name, text] : texts_) {
        if (name == key) {
            return &text;
        }
    }
    return nullptr;
}

} // namespace wybeta::simulator
