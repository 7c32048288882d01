// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "wysim/session/SongInEditor.h"

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::wysim::session {

// Finds out what a command did to the notes of a song.
class SongChanges {
public:
    // Remembers the notes as they are now. The song has to outlive this.
    explicit SongChanges(const SongInEditor& song);

    // A line for each note that has changed, come or gone since.
    std::vector<std::string> lines() const;

private:
    struct Place {
        simulator::Handle<simulator::Event> event;
        std::size_t track;
        std::size_t index;
        std::string lyric;
    };
    using Places = std::vector<Place>;

    Places placesNow() const;
    std::string nameOf(const Place& place) const;

    const SongInEditor& song_;
    Places before_;
};

} // namespace wybeta::wysim::session
