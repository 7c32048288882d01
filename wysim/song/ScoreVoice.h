// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "wysim/song/ScoreLyric.h"
#include "wysim/song/ScoreWarnings.h"
#include "wysim/song/Song.h"

#include <pugixml.hpp>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::wysim::song {

// A note as it is written in a score.
struct ScoreNote {
    SongNote note; // without a lyric
    bool endsTie = false;
    bool beginsTie = false;
    ScoreSyllable syllable;
    pugi::xml_node element = {}; // in the score
};

// The written notes of one voice, which become the notes that one singer sings.
class ScoreVoice {
public:
    void add(ScoreNote note);
    // A slur goes from the note that was added last to the one that will have been when it ends.
    // One that does not end, or did not begin, is none.
    void beginSlur(const std::string& number);
    void endSlur(const std::string& number);
    void dropSlur(const std::string& number) { openSlurs_.erase(number); }
    // Ends a phrase with the note that ends at that time.
    void endPhrase(double time) { phraseEnds_.push_back(time); }
    // Words of a note that is not sung: those of the note that is added next, or else of the last.
    void addWords(const ScoreSyllable& words) { waiting_ = joined(std::move(waiting_), words); }
    bool isSung() const;

    // Of a chord, the top note; of tied notes, one; a note ends where the next begins. Each word is
    // typed into the first of its notes. The voice is empty afterwards.
    std::vector<SongNote> takeNotes(ScoreWarnings& warnings);

private:
    void typeWords();
    void markBeams();
    void markSlurs();
    void markPhraseEnds();
    void cutOverlaps(ScoreWarnings& warnings);

    std::vector<ScoreNote> notes_;                 // in the order of the score until they are taken
    ScoreSyllable waiting_;                        // words for the next note
    std::map<std::string, double> openSlurs_;      // when each began, by its number
    std::vector<std::pair<double, double>> slurs_; // when their first and last notes begin
    std::vector<double> phraseEnds_;
};

} // namespace wybeta::wysim::song
