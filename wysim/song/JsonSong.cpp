// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/JsonSong.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/Text.h"

#include <nlohmann/json.hpp>

#include <limits>
#include <vector>

namespace wybeta::wysim::song {

namespace {

using nlohmann::json;
using nlohmann::ordered_json;

constexpr auto kFormat = "wysim song 1";
constexpr auto kSlurred = "slurred";
constexpr auto kBeamed = "beamed";
constexpr auto kEndsPhrase = "endsPhrase";

constexpr int kDeepest = 100;
constexpr int kMostValues = 6'000'000;

// The library builds any value, in up to 20 times the size of its text. A song nests 4
// deep, and in the longest text a note and its members are 6 values of 75 bytes.
void expectModest(const std::string& bytes) {
    int depth = 0;
    int values = 1;
    bool isInText = false;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const char character = bytes[i];
        if (character == '"') {
            isInText = !isInText;
        } else if (isInText) {
            i += character == '\\' ? 1 : 0;
        } else if (character == '[' || character == '{') {
            if (++depth > kDeepest) {
                throw BadInput::expectedFound("JSON nested at most 100 deep",
                                              "more " + placeAt(bytes, i));
            }
        } else if (character == ']' || character == '}') {
            --depth;
        } else if (character == ',' && ++values > kMostValues) {
            throw BadInput::expectedFound("JSON of at most 6000000 values", "more");
        }
    }
}

json parse(const std::string& bytes) {
    expectModest(bytes);
    try {
        return json::parse(bytes);
    } catch (const json::parse_error& error) {
        const auto offset = error.byte == 0 ? 0 : error.byte - 1;
        throw BadInput::expectedFound("well-formed JSON", "an error " + placeAt(bytes, offset));
    } catch (const json::out_of_range&) {
        throw BadInput::expectedFound("numbers that a song can hold", "one that is too large");
    }
}

const json& member(const json& object, const char* name, bool (json::*isRight)() const noexcept,
                   const char* kind) {
    if (!object.is_object()) {
        throw BadInput::expectedFound("an object", object.type_name());
    }
    const auto found = object.find(name);
    if (found == object.end() || !((*found).*isRight)()) {
        throw BadInput::expectedFound(kind + std::string(" as ") + inQuotes(name),
                                      found == object.end() ? "none" : found->type_name());
    }
    return *found;
}

std::string text(const json& object, const char* name) {
    return member(object, name, &json::is_string, "a text").get<std::string>();
}

double number(const json& object, const char* name) {
    return member(object, name, &json::is_number, "a number").get<double>();
}

bool flag(const json& object, const char* name) {
    return member(object, name, &json::is_boolean, "true or false").get<bool>();
}

// Of a member that is written only where it is true.
bool optionalFlag(const json& object, const char* name) {
    return object.contains(name) && flag(object, name);
}

int integer(const json& object, const char* name) {
    const auto& value = member(object, name, &json::is_number_integer, "an integer");
    const auto wide = value.get<double>();
    constexpr int kMost = std::numeric_limits<int>::max();
    return wide < -kMost || wide > kMost ? -1 : value.get<int>();
}

// Reads each element of a list; an error names the number of its element.
template <class Read>
auto readEach(const json& object, const char* listName, const char* kind, Read read) {
    std::vector<decltype(read(object))> elements;
    for (const auto& element : member(object, listName, &json::is_array, "a list")) {
        try {
            elements.push_back(read(element));
        } catch (const BadInput& error) {
            throw BadInput(error.what() + std::string(" at ") + kind + " " +
                           std::to_string(elements.size() + 1));
        }
    }
    return elements;
}

SongNote readNote(const json& object) {
    SongNote note;
    note.start = number(object, "start");
    note.length = number(object, "length");
    note.pitch = integer(object, "pitch");
    note.lyric = text(object, "lyric");
    note.typed = flag(object, "typed");
    note.marks.isSlurred = optionalFlag(object, kSlurred);
    note.marks.isBeamed = optionalFlag(object, kBeamed);
    note.marks.endsPhrase = optionalFlag(object, kEndsPhrase);
    checkNote(note);
    return note;
}

SongTrack readTrack(const json& object) {
    return {text(object, "name"), readEach(object, "notes", "note", readNote)};
}

Song readSong(const json& object) {
    if (const auto format = text(object, "format"); format != kFormat) {
        throw BadInput::expectedFound("the format " + inQuotes(kFormat), inQuotes(format));
    }
    Song song;
    song.title = text(object, "title");
    song.time.beats = integer(object, "beats");
    song.time.beatType = integer(object, "beatType");
    song.pickup = number(object, "pickup");
    song.tracks = readEach(object, "tracks", "track", readTrack);
    checkSong(song);
    return song;
}

ordered_json noteToJson(const SongNote& note) {
    ordered_json object = {{"start", note.start},
                           {"length", note.length},
                           {"pitch", note.pitch},
                           {"lyric", note.lyric},
                           {"typed", note.typed}};
    const auto addIf = [&object](bool isSet, const char* name) {
        if (isSet) {
            object[name] = true;
        }
    };
    addIf(note.marks.isSlurred, kSlurred);
    addIf(note.marks.isBeamed, kBeamed);
    addIf(note.marks.endsPhrase, kEndsPhrase);
    return object;
}

} // namespace

std::string jsonFromSong(const Song& song) {
    // One note on a line, as a person would lay it out.
    std::string text = "{\n";
    const auto add = [&text](const char* name, const ordered_json& value) {
        text += "  " + ordered_json(name).dump() + ": " + value.dump() + ",\n";
    };
    add("format", kFormat);
    add("title", song.title);
    add("beats", song.time.beats);
    add("beatType", song.time.beatType);
    add("pickup", song.pickup);
    text += "  \"tracks\": [";
    const char* trackGap = "\n";
    for (const auto& track : song.tracks) {
        text += trackGap + std::string("    {\"name\": ") + ordered_json(track.name).dump() +
                ", \"notes\": [";
        const char* noteGap = "\n";
        for (const auto& note : track.notes) {
            text += noteGap + std::string("      ") + noteToJson(note).dump();
            noteGap = ",\n";
        }
        text += "\n    ]}";
        trackGap = ",\n";
    }
    return text + "\n  ]\n}\n";
}

Song songFromJson(const std::string& bytes) {
    return readSong(parse(bytes));
}

} // namespace wybeta::wysim::song
