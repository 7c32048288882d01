// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "simulator/EditorSession.h"
#include "simulator/ModuleExports.h"
#include "simulator/RunningModule.h"
#include "wysim/laying/LaidText.h"
#include "wysim/page/SongJson.h"
#include "wysim/session/Fitting.h"
#include "wysim/session/SongEditing.h"
#include "wysim/song/Song.h"
#include "wysim/words/LyricReader.h"
#include "wysim/words/TextFinding.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::wysim::page {

// A person's work on one song after another, for a program that draws them: it is asked for edits
// and answers in JSON. Tracks and notes are counted from 1, times in quarter notes from 0, pitches
// in semitones.
//
// Each answer is the song as it is then, with what there is to say of the edit, unless said
// otherwise. Its "name" is its title, or that of its file where it has none. A mistake is answered
// by an "error" with its sentence, and then nothing has changed.
class SongPage {
public:
    // Throws std::runtime_error when the module does not start.
    explicit SongPage(const simulator::ModuleExports& module);
    // Gives the module back. Throws std::runtime_error when the module has kept anything. To be
    // called once.
    void close();

    // For "en" or "ja".
    std::string openExample(const std::string& language);
    // The bytes of a file of that name; answers with "warnings". The song that was open goes.
    std::string open(const std::string& bytes, const std::string& fileName);
    std::string song();

    // Answers with the "check" of the text.
    std::string type(int track, int note, const std::string& text);
    // These two answer with the number that the "note" then has.
    std::string add(int track, double start, double length, int pitch);
    std::string move(int track, int note, double start, double length, int pitch);
    std::string remove(int track, int note);
    std::string undo();
    std::string redo();

    // Answers with what there is to say of the lyric that was last typed into the note.
    std::string check(int track, int note);
    // Types what brings each word onto its notes, in one edit; answers with how it went as "fit".
    // See words::WaysToFit.
    std::string fit(bool usesBrackets, bool usesGuesses);
    // Answers with the "lines" of a text that have words, and changes nothing: how many "syllables"
    // each has, how many of them would come "onNotes", how many "notes" they would take (null for
    // none), and its "unsung" words.
    std::string lines(int track, const std::string& text);
    // Lays the text under the track in one edit, in place of all words there; answers with how it
    // went as "laid".
    std::string lay(int track, const std::string& text, bool usesGuesses);
    // Answers with the "name", the "mime" type and the "text" of a file of the kind "musicxml",
    // "json" or "svg".
    std::string save(const std::string& kind);

private:
    // A song in a project of its own.
    struct OpenSong {
        OpenSong(const simulator::Editor& first, const song::Song& song, std::string called)
            : editor(first.openProject()), name(std::move(called)), opened(song),
              editing(editor, song) {}

        simulator::Editor editor;
        std::string name;
        song::Song opened; // as it was before the first edit
        session::SongEditing editing;
    };

    // What runs in the place of a method; gives its answer.
    using Work = std::function<std::string()>;
    static std::string answer(const Work& work);

    void show(const song::Song& song, const std::string& name);
    void takeBracketsOff(const OpenSong& open);
    OpenSong& openSong() const;
    // The editing, for an edit to come.
    session::SongEditing& editing() const;
    std::size_t trackIndex(int track) const;
    std::size_t noteIndex(std::size_t track, int note) const;
    // The song, with further members of the answer in JSON, each with a comma before it.
    std::string songWith(const std::string& members = {}) const;

    std::string checkOf(std::size_t track, std::size_t note, const std::string& lyric);
    std::vector<session::FittedSongWord> fitted(words::WaysToFit ways);
    std::vector<UnsungWord> unsungWords(const laying::LaidText& laid, const laying::LaidLine& line);
    // What to say of a word of a text that is not sung; the answer is kept.
    const words::CheckedLyric& checkOfWord(const std::string& lyric);

    words::LyricReader reader_;
    laying::TextLaying counting_; // of texts that are not laid yet
    std::map<std::string, words::CheckedLyric> checkedWords_;
    simulator::RunningModule module_;
    simulator::EditorSession session_;
    std::unique_ptr<OpenSong> song_; // null until one is opened
};

} // namespace wybeta::wysim::page
