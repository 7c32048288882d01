// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/page/SongPage.h"

#include "wysim/page/SongJson.h"
#include "wysim/picture/NoteText.h"
#include "wysim/picture/SongPicture.h"
#include "wysim/session/Laying.h"
#include "wysim/session/Proof.h"
#include "wysim/song/BadInput.h"
#include "wysim/song/Example.h"
#include "wysim/song/SongFile.h"
#include "wysim/terminal/Progress.h"
#include "wysim/words/LyricText.h"
#include "wysim/words/PlainWords.h"
#include "wysim/words/SongWords.h"
#include "wysim/words/TextCheck.h"
#include "wysim/words/Wording.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <map>
#include <new>
#include <string_view>
#include <utility>

namespace wybeta::wysim::page {

namespace {

std::size_t indexOf(int number, std::size_t count, const std::string& what) {
    if (count == 0) {
        throw song::BadInput::expectedFound(what, "none");
    }
    if (number < 1 || static_cast<std::size_t>(number) > count) {
        throw song::BadInput::expectedFound(what + " from 1 to " + std::to_string(count),
                                            std::to_string(number));
    }
    return static_cast<std::size_t>(number) - 1;
}

// A text in JSON, whatever bytes it holds.
std::string inJson(const std::string& text) {
    constexpr auto kWithReplacements = nlohmann::json::error_handler_t::replace;
    return nlohmann::json(text).dump(-1, ' ', false, kWithReplacements);
}

std::string errorOf(const std::string& sentence) {
    return "{\"error\":" + inJson(sentence) + "}";
}

// What a person calls the song: its title, or the name of its file without the ending.
std::string nameOf(const song::Song& song, const std::filesystem::path& file) {
    return words::trimmed(song.title).empty() ? file.stem().u8string() : song.title;
}

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

song::SongNote noteOf(double start, double length, int pitch) {
    song::SongNote note;
    note.start = start;
    note.length = length;
    note.pitch = pitch;
    return note;
}

// Up to the next note into which something was typed.
std::size_t countNotesFrom(const session::SongInEditor& song, std::size_t track, std::size_t note) {
    std::size_t end = note + 1;
    while (end < song.countNotes(track) && !song.note(track, end).flagged) {
        ++end;
    }
    return end - note;
}

// Whether the notes of a word carry the syllables that typing gives them.
bool carries(const session::SongInEditor& song, const words::SongWord& word,
             const session::Syllables& syllables) {
    for (std::size_t i = 0; i < syllables.size(); ++i) {
        const auto note = song.songNote(word.track - 1, word.note - 1 + i);
        if (picture::NoteText(note.lyric).syllable != syllables[i]) {
            return false;
        }
    }
    return true;
}

} // namespace

SongPage::SongPage(const simulator::ModuleExports& module)
    : counting_(reader_, false), module_(module), session_(module_.factory()) {}

void SongPage::close() {
    song_.reset();
    session_.end();
    module_.stop();
}

std::string SongPage::openExample(const std::string& language) {
    return answer([&] {
        if (language != "en" && language != "ja") {
            throw song::BadInput::expectedFound("the language en or ja", words::inQuotes(language));
        }
        const auto example = language == "en" ? song::exampleSong() : song::japaneseExampleSong();
        show(example, example.title);
        return songWith();
    });
}

std::string SongPage::open(const std::string& bytes, const std::string& fileName) {
    return answer([&] {
        terminal::Progress progress;
        const auto path = std::filesystem::u8path(fileName);
        const auto opened = song::songFromFile(path, bytes, {}, progress);
        show(opened.song, nameOf(opened.song, path));
        return songWith(R"(,"warnings":)" + nlohmann::json(opened.warnings).dump());
    });
}

std::string SongPage::song() {
    return answer([&] { return songWith(); });
}

std::string SongPage::type(int track, int note, const std::string& text) {
    return answer([&] {
        const auto trackPlace = trackIndex(track);
        const auto place = noteIndex(trackPlace, note);
        const auto check = checkOf(trackPlace, place, text);
        editing().type(trackPlace, place, text);
        return songWith(R"(,"check":)" + check);
    });
}

std::string SongPage::add(int track, double start, double length, int pitch) {
    return answer([&] {
        const auto index = editing().add(trackIndex(track), noteOf(start, length, pitch));
        return songWith(R"(,"note":)" + std::to_string(index + 1));
    });
}

std::string SongPage::move(int track, int note, double start, double length, int pitch) {
    return answer([&] {
        const auto trackPlace = trackIndex(track);
        const auto index =
            editing().move(trackPlace, noteIndex(trackPlace, note), noteOf(start, length, pitch));
        return songWith(R"(,"note":)" + std::to_string(index + 1));
    });
}

std::string SongPage::remove(int track, int note) {
    return answer([&] {
        const auto trackPlace = trackIndex(track);
        editing().remove(trackPlace, noteIndex(trackPlace, note));
        return songWith();
    });
}

std::string SongPage::undo() {
    return answer([&] {
        editing().undo();
        return songWith();
    });
}

std::string SongPage::redo() {
    return answer([&] {
        editing().redo();
        return songWith();
    });
}

std::string SongPage::check(int track, int note) {
    return answer([&] {
        const auto trackPlace = trackIndex(track);
        const auto place = noteIndex(trackPlace, note);
        return checkOf(trackPlace, place,
                       openSong().editing.inEditor().typedLyric(trackPlace, place));
    });
}

std::string SongPage::fit(bool usesBrackets, bool usesGuesses) {
    return answer([&] {
        const auto words = fitted({usesBrackets, usesGuesses});
        const auto& song = openSong().editing.inEditor();
        std::vector<session::TypedLyric> lyrics;
        for (const auto& [word, found, carried] : words) {
            const bool isDone = found.text == word.text && carries(song, word, carried);
            if (isFitted(found.outcome) && !isDone) {
                lyrics.push_back({word.track - 1, word.note - 1, found.text});
            }
        }
        editing().typeAll(lyrics);
        return songWith(R"(,"fit":)" + fitJson(words));
    });
}

std::string SongPage::lines(int track, const std::string& text) {
    return answer([&] {
        const auto laid = counting_.place(laying::linesOfText(text),
                                          openSong().editing.inEditor().song(), trackIndex(track));
        std::vector<CountedLine> lines;
        lines.reserve(laid.lines.size());
        for (const auto& line : laid.lines) {
            lines.push_back({line, unsungWords(laid, line)});
        }
        return linesJson(lines);
    });
}

std::string SongPage::lay(int track, const std::string& text, bool usesGuesses) {
    return answer([&] {
        const auto place = trackIndex(track);
        const auto song = openSong().editing.inEditor().song();
        const auto laid =
            laying::TextLaying(reader_, usesGuesses).lay(laying::linesOfText(text), song, place);
        auto project = session_.editor().openProject();
        session::proveLaid(project, laid);
        editing().replaceLyrics(place, session::laidLyrics(laid));
        return songWith(R"(,"laid":)" + laidJson(laid, session::countWords(song, place)));
    });
}

std::string SongPage::save(const std::string& kind) {
    return answer([&] {
        static const std::map<std::string, const char*> kMimeTypes = {
            {"musicxml", "application/vnd.recordare.musicxml+xml"},
            {"json", "application/json"},
            {"svg", "image/svg+xml"}};
        const auto& open = openSong();
        const auto mime = kMimeTypes.find(kind);
        if (mime == kMimeTypes.end()) {
            throw song::BadInput::expectedFound("the kind musicxml, json or svg",
                                                words::inQuotes(kind));
        }
        const auto now = open.editing.inEditor().song();
        const auto text = kind == "svg" ? picture::svgPicture(open.opened, now)
                                        : song::songFileText("song." + kind, now);
        const nlohmann::ordered_json file = {
            {"name", fileName(open.name, kind)}, {"mime", mime->second}, {"text", text}};
        return file.dump();
    });
}

std::string SongPage::answer(const Work& work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return errorOf(song::kOutOfMemory);
    } catch (const std::exception& error) {
        return errorOf(error.what());
    }
}

void SongPage::show(const song::Song& song, const std::string& name) {
    auto next = std::make_unique<OpenSong>(session_.editor(), song, name);
    takeBracketsOff(*next);
    song_ = std::move(next);
}

// A file holds divisions, of which a person typed the words alone.
void SongPage::takeBracketsOff(const OpenSong& open) {
    for (const auto& word : words::wordsOf(words::withPlainWords(reader_, open.opened))) {
        open.editing.inEditor().setTypedLyric(word.track - 1, word.note - 1, word.text);
    }
}

SongPage::OpenSong& SongPage::openSong() const {
    if (!song_) {
        throw song::BadInput::expectedFound("an open song", "none");
    }
    return *song_;
}

// Lyrics may have been tried in another project since the last edit.
session::SongEditing& SongPage::editing() const {
    openSong().editor.notify();
    return openSong().editing;
}

std::size_t SongPage::trackIndex(int track) const {
    return indexOf(track, openSong().editing.inEditor().countTracks(), "a track");
}

std::size_t SongPage::noteIndex(std::size_t track, int note) const {
    return indexOf(note, openSong().editing.inEditor().countNotes(track), "a note");
}

std::string SongPage::songWith(const std::string& members) const {
    const auto& open = openSong();
    return "{\"name\":" + inJson(open.name) + "," + songMembers(open.editing) + members + "}";
}

std::string SongPage::checkOf(std::size_t track, std::size_t note, const std::string& lyric) {
    auto project = session_.editor().openProject();
    session::Proof proof(project);
    const auto checked = words::TextCheck(reader_, proof.prover()).checkLyric(lyric);
    const auto& syllables = proof.sung(lyric, reader_.syllablesOf(lyric));
    const auto notes = countNotesFrom(openSong().editing.inEditor(), track, note);
    return checkJson(checked, syllables, syllables.size() - std::min(notes, syllables.size()));
}

std::vector<UnsungWord> SongPage::unsungWords(const laying::LaidText& laid,
                                              const laying::LaidLine& line) {
    std::vector<UnsungWord> unsung;
    for (const auto& word : session::wordsLeft(laid, line)) {
        if (!word.isSung) {
            unsung.push_back({word, checkOfWord(word.lyric)});
        }
    }
    return unsung;
}

const words::CheckedLyric& SongPage::checkOfWord(const std::string& lyric) {
    const auto [known, isNew] = checkedWords_.try_emplace(lyric);
    const bool isShort = words::charactersOf(lyric).size() <= words::TextCheck::kLongestLine;
    if (isNew && isShort) {
        auto project = session_.editor().openProject();
        session::Proof proof(project);
        known->second = words::TextCheck(reader_, proof.prover()).checkLyric(lyric);
    }
    return known->second;
}

std::vector<session::FittedSongWord> SongPage::fitted(words::WaysToFit ways) {
    auto project = session_.editor().openProject();
    terminal::Progress progress;
    return session::fitWords(project, reader_, openSong().editing.inEditor().typedSong(), ways,
                             progress);
}

} // namespace wybeta::wysim::page
