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
// so that they can come back from the host's history. The spelling of the name is kept on purpose.
class LyricsDevideEditStep final : public EditStep {
public:
    LyricsDevideEditStep(host::IProjectNode* trackNode, lyrics::LyricsDivision division);

    Steinberg::tresult PLUGIN_API execute() override;
    void PLUGIN_API undo() override;
    void PLUGIN_API redo() override;
    Steinberg::tresult PLUGIN_API
    reportChangedObjects(host::IEditObjectCollector* collector) override;

private:
    // Notes that are null or that are notes no longer are passed over. A text that is not valid
    // UTF-8 raises utf8::exception; the notes before it have been written then.
    void applyLyrics(const std::vector<std::string>& texts) const;
    void syncTable(const std::vector<std::string>& texts) const;

    lyrics::LyricsDivision division_;
};

} // namespace wybeta::editsteps
