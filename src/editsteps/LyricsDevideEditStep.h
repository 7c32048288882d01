// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editsteps/EditStep.h"
#include "host/IEditStep.h"
#include "host/IProjectNode.h"
#include "tracks/LyricsDivision.h"

#include <string>
#include <vector>

namespace wybeta::editsteps {

// Writes the texts of a division into its notes, and the old texts back on undo. Holds the notes,
// so that they survive a deletion that the host may undo. The class name is given, spelling
// and all.
class LyricsDevideEditStep final : public EditStep {
public:
    LyricsDevideEditStep(host::IProjectNode* trackNode, tracks::LyricsDivision division);
    ~LyricsDevideEditStep() override;

    Steinberg::tresult PLUGIN_API execute() override;
    void PLUGIN_API undo() override;
    void PLUGIN_API redo() override;
    Steinberg::tresult PLUGIN_API
    reportChangedObjects(host::IEditObjectCollector* collector) override;

private:
    // Skips notes that are null or no longer notes. A text that is not valid UTF-8 throws
    // utf8::exception after the notes before it have been written.
    void applyLyrics(const std::vector<std::string>& texts) const;
    void applyToNotesAndTable(const std::vector<std::string>& texts);

    tracks::LyricsDivision division_;
};

} // namespace wybeta::editsteps
