// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/session/UnsungParts.h"

#include "wysim/session/TextCheck.h"
#include "wysim/song/Song.h"
#include "wysim/words/CheckReport.h"
#include "wysim/words/LyricText.h"

namespace wybeta::wysim::session {

std::vector<std::string> sentencesOnUnsungParts(const simulator::Editor& editor,
                                                const std::string& lyric) {
    song::checkText(lyric);
    if (lyric.empty() || words::charactersOf(lyric).size() > TextCheck::kLongestLine) {
        return {};
    }
    auto project = editor.openProject();
    std::vector<std::string> sentences;
    for (const auto& finding : TextCheck(project).checkLyric(lyric).findings) {
        if (!words::isSung(finding.reason)) {
            sentences.push_back(words::sentenceOn(finding));
        }
    }
    return sentences;
}

} // namespace wybeta::wysim::session
