// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/model/SessionText.h"

#include <string_view>

namespace wybeta::tests {

namespace {

std::string listed(const std::vector<Id>& notes) {
    std::string text;
    for (const Id note : notes) {
        text += " " + std::to_string(note);
    }
    return notes.empty() ? " a change of the count" : " a division of" + text;
}

std::string described(const EventState& state) {
    std::string text;
    if (state.lyric) {
        text += " " + quoted(*state.lyric);
    }
    if (state.flagged) {
        text += *state.flagged ? " flagged" : " not flagged";
    }
    if (state.kind) {
        text += *state.kind == Kind::Note ? " a note" : " another event";
    }
    return text;
}

const char* nameOf(Kind kind) {
    switch (kind) {
    case Kind::Project:
        return "project";
    case Kind::Folder:
        return "folder";
    case Kind::VoiceTrack:
        return "voice track";
    case Kind::OtherTrack:
        return "other track";
    case Kind::Part:
        return "part";
    case Kind::OtherChild:
        return "other child";
    case Kind::Note:
        return "note";
    case Kind::OtherEvent:
        return "other event";
    }
    return "";
}

} // namespace

std::string quoted(const std::string& text) {
    std::string result = "\"";
    for (const char c : text) {
        const auto place = std::string_view("\n\r\t\v").find(c);
        result +=
            place == std::string_view::npos ? std::string(1, c) : std::string("\\") + "nrtv"[place];
    }
    return result + "\"";
}

std::string described(const NaiveModel& model, Id id) {
    const Item& item = model[id];
    std::string text = nameOf(item.kind) + (" " + std::to_string(id));
    if (item.kind == Kind::Note) {
        return text + " " + quoted(item.lyric) + (item.flagged ? " flagged" : "");
    }
    std::string inside;
    for (const Id child : item.children) {
        inside += (inside.empty() ? "" : ", ") + described(model, child);
    }
    return inside.empty() ? text : text + " (" + inside + ")";
}

std::string described(const NaiveModel& model, const std::vector<ModelChange>& changes) {
    std::string text;
    for (const auto& change : changes) {
        const std::string where =
            std::to_string(change.parent) + "/" + std::to_string(change.index);
        text += text.empty() ? " " : ", ";
        switch (change.type) {
        case ModelChange::Type::Insert:
            text += "insert " + described(model, change.item) + " at " + where;
            break;
        case ModelChange::Type::Remove:
            text += "remove " + std::to_string(change.item) + " from " + where;
            break;
        case ModelChange::Type::Alter:
            text += "make " + std::to_string(change.item) + described(change.after);
            break;
        }
    }
    return text;
}

std::string described(const std::vector<std::vector<Id>>& steps) {
    std::string text;
    for (const auto& notes : steps) {
        text += (text.empty() ? "" : ",") + listed(notes);
    }
    return steps.empty() ? " no steps" : text;
}

} // namespace wybeta::tests
