// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/CompressedScore.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/Text.h"
#include "wysim/song/XmlDocument.h"
#include "wysim/song/ZipArchive.h"

#include <algorithm>
#include <string_view>

namespace wybeta::wysim::song {

namespace {

constexpr auto kContainer = "META-INF/container.xml";

bool mayBeScore(std::string_view name) {
    const auto ending = name.substr(std::min(name.rfind('.'), name.size()));
    return (ending == ".xml" || ending == ".musicxml") && name.find("META-INF/") != 0;
}

std::string scoreNamedIn(const std::string& container) {
    const XmlDocument document(container);
    return document.root().child("rootfiles").child("rootfile").attribute("full-path").value();
}

} // namespace

bool isCompressed(const std::string& bytes) {
    return bytes.compare(0, 2, "PK") == 0;
}

UnpackedScore unpackScore(const std::string& bytes, std::size_t limit) {
    const ZipArchive archive(bytes);
    const auto names = archive.names();
    if (std::find(names.begin(), names.end(), kContainer) != names.end()) {
        return {archive.unpack(scoreNamedIn(archive.unpack(kContainer, limit)), limit), {}};
    }
    const auto score = std::find_if(names.begin(), names.end(), mayBeScore);
    if (score == names.end()) {
        throw BadInput::expectedFound("a score in the zip file", "none");
    }
    return {archive.unpack(*score, limit),
            {"the zip file does not name its score; " + inQuotes(*score) + " is read"}};
}

} // namespace wybeta::wysim::song
