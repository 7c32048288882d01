// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Editor.h"
#include "wysim/session/SongEditing.h"
#include "wysim/session/SongInEditor.h"
#include "wysim/song/Song.h"
#include "wysim/words/LyricReader.h"

#include <cstddef>
#include <filesystem>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace wybeta::wysim::session {

// A person's work on one song, command by command. Each command answers with what has changed.
class Session {
public:
    // Opens the song, which was read from the file, in the editor. The editor, the reader and the
    // stream have to outlive this.
    Session(simulator::Editor& editor, words::LyricReader& reader, const song::Song& song,
            std::filesystem::path file, std::ostream& out);

    // Runs one line; an empty one and one that begins with '#' do nothing. A mistake throws
    // BadInput, and then nothing has changed.
    void run(std::string_view line);
    bool isOver() const { return isOver_; }

    // The song as it was opened beside the song as it is now, in SVG.
    std::string picture() const;

private:
    using Arguments = std::string_view;
    struct Command {
        std::string_view name;
        std::string_view arguments;
        std::string_view help; // of one line or more
        void (Session::*perform)(Arguments);
        bool changesNotes;
    };
    static const std::vector<Command> kCommands;

    static const Command& commandNamed(std::string_view name);
    static std::string helpOn(const std::vector<Command>& commands);

    std::string recalled(std::string_view line) const;
    void perform(std::string_view line);
    // Performs a command that may change notes, and tells what it has changed.
    void change(const Command& command, std::string_view arguments);
    // Finds out what of a lyric that is about to be typed is not sung.
    void checkLyric(const std::string& lyric);

    void show(Arguments arguments);
    void tracks(Arguments arguments);
    void type(Arguments arguments);
    void add(Arguments arguments);
    void remove(Arguments arguments);
    void undo(Arguments arguments);
    void redo(Arguments arguments);
    void notify(Arguments arguments);
    void save(Arguments arguments);
    void history(Arguments arguments);
    void help(Arguments arguments);
    void quit(Arguments arguments);

    const SongInEditor& inEditor() const { return editing_.inEditor(); }
    std::size_t noteIndex(std::string_view number) const;

    simulator::Editor& editor_;
    words::LyricReader& reader_;
    song::Song opened_;
    std::filesystem::path file_;
    SongEditing editing_;
    std::ostream& out_;
    std::size_t track_ = 0; // that commands are about
    std::vector<std::string> history_;
    std::vector<std::string> remarks_; // on the lyric of the last command
    bool isOver_ = false;
};

} // namespace wybeta::wysim::session
