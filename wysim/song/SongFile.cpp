// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/SongFile.h"

#include "wysim/song/BadInput.h"
#include "wysim/song/FileBytes.h"
#include "wysim/song/JsonSong.h"
#include "wysim/song/MusicXmlReader.h"
#include "wysim/song/MusicXmlWriter.h"
#include "wysim/song/Text.h"
#include "wysim/song/XmlDocument.h"
#include "wysim/song/ZipArchive.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <new>
#include <system_error>

namespace wybeta::wysim::song {

namespace {

namespace fs = std::filesystem;

bool isMusicXml(std::string_view ending) {
    return ending == ".musicxml" || ending == ".xml";
}

bool isCompressed(const std::string& bytes) {
    return bytes.compare(0, 2, "PK") == 0;
}

// What else than a score a file holds, as far as people mistake it for one; empty when it may be a
// score.
std::string otherKindOf(const std::string& bytes) {
    struct Kind {
        std::string_view begins;
        const char* name;
    };
    constexpr std::array<Kind, 5> kKinds = {{{"\x89PNG", "a picture (PNG)"},
                                             {"\xFF\xD8\xFF", "a picture (JPEG)"},
                                             {"GIF8", "a picture (GIF)"},
                                             {"%PDF", "a PDF document"},
                                             {"MThd", "a MIDI file"}}};
    for (const auto& kind : kKinds) {
        if (bytes.compare(0, kind.begins.size(), kind.begins) == 0) {
            return kind.name;
        }
    }
    const auto begin = std::string_view(bytes).substr(0, 4096);
    const bool isSvg = begin.find("<svg") < begin.find("<score-");
    return isSvg ? "a picture (SVG)" : "";
}

// A score that is called compressed and is not is read as well.
void expectScore(const std::string& bytes, const std::string& ending) {
    auto other = otherKindOf(bytes);
    const bool isXml = bytes.substr(0, 100).find('<') != std::string::npos;
    if (other.empty() && ending == ".mxl" && !isCompressed(bytes) && !isXml) {
        other = "neither a zip file nor XML";
    }
    if (!other.empty()) {
        throw BadInput::expectedFound(
            ending == ".mxl" ? "a compressed score" : "a score in MusicXML", other);
    }
}

bool mayBeScore(std::string_view name) {
    const auto ending = name.substr(std::min(name.rfind('.'), name.size()));
    return isMusicXml(ending) && name.find("META-INF/") != 0;
}

OpenedSong songFromZip(const std::string& bytes, const ScoreChoice& choice,
                       terminal::Progress& progress) {
    constexpr auto kContainer = "META-INF/container.xml";
    const ZipArchive archive(bytes);
    const auto read = [&](const std::string& name) {
        return songFromMusicXml(UnpackedXml{archive.unpack(name, kLargestSongFile)}, choice,
                                progress);
    };
    const auto names = archive.names();
    if (std::find(names.begin(), names.end(), kContainer) != names.end()) {
        const XmlDocument document(UnpackedXml{archive.unpack(kContainer, kLargestSongFile)});
        const auto files = document.root().child("rootfiles");
        return read(files.child("rootfile").attribute("full-path").value());
    }
    const auto score = std::find_if(names.begin(), names.end(), mayBeScore);
    if (score == names.end()) {
        throw BadInput::expectedFound("a score in the zip file", "none");
    }
    auto opened = read(*score);
    opened.warnings.insert(opened.warnings.begin(), "the zip file does not name its score; " +
                                                        inQuotes(*score) + " is read");
    return opened;
}

// Runs the reading of a song by the ending of its file's name. What it finds wrong is told with the
// name.
template <class Read>
OpenedSong readNamed(const fs::path& name, Read read) {
    try {
        const auto ending = endingOf(name);
        if (ending != ".json" && ending != ".mxl" && !isMusicXml(ending)) {
            throw BadInput::expectedFound("a name that ends in .musicxml, .xml, .mxl or .json",
                                          inQuotes(ending, "no ending"));
        }
        return read(ending);
    } catch (const BadInput& error) {
        throw BadInput(name.u8string() + ": " + error.what());
    } catch (const std::bad_alloc&) {
        throw BadInput(name.u8string() + ": " + kOutOfMemory);
    }
}

} // namespace

std::string endingOf(const fs::path& path) {
    auto ending = path.extension().u8string();
    for (char& letter : ending) {
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
    return ending;
}

OpenedSong songFromBytes(const std::string& bytes, const std::string& ending,
                         const ScoreChoice& choice, terminal::Progress& progress) {
    if (ending == ".json") {
        return {songFromJson(bytes), {}};
    }
    expectScore(bytes, ending);
    return isCompressed(bytes) ? songFromZip(bytes, choice, progress)
                               : songFromMusicXml(bytes, choice, progress);
}

OpenedSong readSongFile(const fs::path& path, const ScoreChoice& choice,
                        terminal::Progress& progress) {
    return readNamed(path, [&](const std::string& ending) {
        return songFromBytes(readFile(path, kLargestSongFile), ending, choice, progress);
    });
}

OpenedSong songFromFile(const fs::path& name, const std::string& bytes, const ScoreChoice& choice,
                        terminal::Progress& progress) {
    return readNamed(name, [&](const std::string& ending) {
        expectSize(bytes.size(), kLargestSongFile);
        return songFromBytes(bytes, ending, choice, progress);
    });
}

std::string songFileText(const fs::path& path, const Song& song) {
    const auto ending = endingOf(path);
    if (ending == ".json") {
        return jsonFromSong(song);
    }
    if (isMusicXml(ending)) {
        return musicXmlFromSong(song);
    }
    throw BadInput::expectedFound("a name that ends in .json, .musicxml, .xml or .svg",
                                  inQuotes(ending, "no ending"));
}

void expectOtherFile(const fs::path& path, const fs::path& song) {
    std::error_code ignored;
    if (fs::equivalent(path, song, ignored)) {
        throw BadInput::expectedFound("another file to write than the song that was opened",
                                      path.u8string());
    }
}

} // namespace wybeta::wysim::song
