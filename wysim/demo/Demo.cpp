// SPDX-License-Identifier: GPL-3.0-or-later
//
// Loads a module file into a simulated editor, types lyrics into the notes of a track, and shows
// the notes before, after, undone and redone.
#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/RunningModule.h"
#include "simulator/Track.h"
#include "wysim/terminal/TextTable.h"

#include "pluginterfaces/base/funknown.h"
#include "pluginterfaces/base/ipluginbase.h"

#include <cstddef>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace wybeta;

struct Verse {
    const char* typed;
    std::size_t notes;
};

// Each is typed into the first of its notes.
const std::vector<Verse> kVerses = {
    {"さくら", 3},
    {"Twinkle little star", 5},
    {"la[l a,l a]", 2},
};

Steinberg::PClassInfo2 readClassRecord(Steinberg::IPluginFactory& factory) {
    Steinberg::FUnknownPtr<Steinberg::IPluginFactory2> factory2(&factory);
    Steinberg::PClassInfo2 record;
    if (!factory2 || factory2->getClassInfo2(0, &record) != Steinberg::kResultOk) {
        throw std::runtime_error("expected the factory to list a class, found none");
    }
    return record;
}

void printClassRecord(const Steinberg::PClassInfo2& record) {
    char id[64] = {};
    Steinberg::FUID(record.cid).toRegistryString(id);
    std::cout << record.name << " " << record.version << ", category " << record.category
              << ", SDK version " << record.sdkVersion << ", class " << id << "\n\n";
}

using Notes = std::vector<simulator::Handle<simulator::Event>>;

Notes addNotes(simulator::Part& part, std::size_t count) {
    Notes notes;
    for (std::size_t i = 0; i < count; ++i) {
        notes.push_back(simulator::makeHandle<simulator::Event>(part.state()));
        notes.back()->startInPart = static_cast<double>(i);
        part.add(notes.back());
    }
    // A typed note ends the division before it, so nothing spreads from verse to verse.
    notes.front()->flagged = true;
    return notes;
}

using Lyrics = std::vector<std::string>;

Lyrics lyricsOf(const Notes& notes) {
    Lyrics lyrics;
    for (const auto& note : notes) {
        lyrics.push_back(note->lyric());
    }
    return lyrics;
}

void expectSame(const Lyrics& left, const Lyrics& right, const char* sentence) {
    if (left != right) {
        throw std::runtime_error(std::string("expected that ") + sentence);
    }
}

void sing(simulator::Editor& editor, const Notes& notes, const char* typed) {
    const auto before = lyricsOf(notes);
    editor.type(*notes.front(), typed);
    const auto after = lyricsOf(notes);
    editor.undo();
    const auto undone = lyricsOf(notes);
    editor.redo();
    const auto redone = lyricsOf(notes);
    editor.notify();

    std::cout << "typed: " << typed << "\n";
    wysim::terminal::TextTable table({"note", "before", "after", "undone", "redone"});
    for (std::size_t i = 0; i < notes.size(); ++i) {
        table.add({std::to_string(i + 1), before[i], after[i], undone[i], redone[i]});
    }
    std::cout << table.text() << "\n";
    expectSame(before, undone, "undo brings the old lyrics back");
    expectSame(after, redone, "redo brings the division back");
    expectSame(after, lyricsOf(notes), "a notification changes no lyric");
}

void singVerses(simulator::Editor& editor) {
    const auto part = simulator::makeHandle<simulator::Part>(editor.state());
    std::vector<Notes> verses;
    verses.reserve(kVerses.size());
    for (const auto& verse : kVerses) {
        verses.push_back(addNotes(*part, verse.notes));
    }
    const auto track = simulator::makeVoiceTrack(editor.state());
    track->add(part);
    editor.add(editor.project(), 0, track);
    for (std::size_t i = 0; i < kVerses.size(); ++i) {
        sing(editor, verses[i], kVerses[i].typed);
    }
    while (editor.undo()) {
    }
    editor.terminate();
}

void run(const char* path) {
    simulator::RunningModule module(path);
    printClassRecord(readClassRecord(module.factory()));
    module.use(singVerses);
    module.stop();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: demo MODULE\n";
        return 2;
    }
    try {
        run(argv[1]);
        return 0;
    } catch (const std::exception& error) {
        std::cout.flush();
        std::cerr << "demo: " << error.what() << "\n";
        return 1;
    }
}
