// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/page/PageFile.h"

#include "wysim/picture/SongPicture.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/words/Wording.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string_view>

namespace wybeta::wysim::page {

namespace {

// The song's name without what some systems do not take in the name of a file.
std::string fileName(const std::string& song, const std::string& kind) {
    constexpr std::string_view kForbidden = "/\\:*?\"<>|";
    auto name = std::string(words::trimmed(song));
    std::replace_if(
        name.begin(), name.end(),
        [&](char character) { return kForbidden.find(character) != std::string_view::npos; }, '-');
    name.erase(0, name.find_first_not_of('.'));
    return (name.empty() ? "song" : name) + "." + kind;
}

} // namespace

std::string fileJson(const std::string& kind, const std::string& name, const song::Song& opened,
                     const song::Song& now) {
    const auto file = [&](const char* mime, const std::string& text) {
        auto members = nlohmann::ordered_json::object();
        members["name"] = fileName(name, kind);
        members["mime"] = mime;
        members["text"] = text;
        return members.dump();
    };
    if (kind == "musicxml") {
        return file("application/vnd.recordare.musicxml+xml", musicXmlFromSong(now));
    }
    if (kind == "json") {
        return file("application/json", jsonFromSong(now));
    }
    if (kind == "svg") {
        return file("image/svg+xml", picture::svgPicture(opened, now));
    }
    throw song::BadInput::expectedFound("the kind musicxml, json or svg", words::inQuotes(kind));
}

} // namespace wybeta::wysim::page
