// SPDX-License-Identifier: GPL-3.0-or-later
//
// Loads a module file into a simulated editor, types lyrics into the notes of a song, and shows the
// notes before, after, undone and redone.
#include "simulator/Editor.h"
#include "simulator/Event.h"
#include "simulator/HostObject.h"
#include "simulator/LoadedModule.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "wysim/terminal/TextTable.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

#include <cstddef>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace wybeta::simulator;

struct Verse {
    const char* typed;
    std::size_t notes;
};

// Each is typed into the first of its notes. The last one but one has more syllables than notes.
const std::vector<Verse> kSong = {
    {"さくら", 3},
    {"さくら さくら キャンディー", 11},
    {"Twinkle twinkle little star", 7},
    {"ドレミ love song", 5},
    {"hel-lo", 3},
    {"la[l a,l a,l a]", 3},
    {"ス0", 1},
    {"abandon", 2},
    {"桜", 1},
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
              << ", SDK version " << record.sdkVersion << ", cardinality " << record.cardinality
              << "\n"
              << id << "\n\n";
}

using Notes = std::vector<Handle<Event>>;

Notes addNotes(Part& part, std::size_t count) {
    Notes notes;
    for (std::size_t i = 0; i < count; ++i) {
        notes.push_back(make<Event>(part.state()));
        notes.back()->startInPart = static_cast<double>(i);
        part.add(notes.back());
    }
    return notes;
}

std::vector<std::string> lyricsOf(const Notes& notes) {
    std::vector<std::string> lyrics;
    for (const auto& note : notes) {
        lyrics.push_back(note->lyric());
    }
    return lyrics;
}

void expectSame(const std::vector<std::string>& left, const std::vector<std::string>& right,
                const char* sentence) {
    if (left != right) {
        throw std::runtime_error(std::string("expected that ") + sentence);
    }
}

void sing(Editor& editor, const Notes& notes, const char* typed) {
    const auto before = lyricsOf(notes);
    editor.type(*notes.front(), typed);
    const auto after = lyricsOf(notes);
    editor.undo();
    const auto undone = lyricsOf(notes);
    editor.redo();
    const auto redone = lyricsOf(notes);
    // The editor tells of changes in between; nothing may follow from it.
    editor.notify();

    std::cout << "typed: " << typed << "\n";
    TextTable table({"note", "before", "after", "undone", "redone"});
    for (std::size_t i = 0; i < notes.size(); ++i) {
        table.add({std::to_string(i + 1), before[i], after[i], undone[i], redone[i]});
    }
    std::cout << table.text() << "\n";
    expectSame(before, undone, "undo brings the old lyrics back");
    expectSame(after, redone, "redo brings the division back");
    expectSame(after, lyricsOf(notes), "a notification changes no lyric");
}

void singSong(Steinberg::IPluginFactory& factory) {
    Editor editor(factory);
    const auto state = editor.state();
    const auto part = make<Part>(state);
    std::vector<Notes> verses;
    for (const auto& verse : kSong) {
        verses.push_back(addNotes(*part, verse.notes));
        // A note of its own ends each verse, so that nothing spreads into the next one.
        verses.back().front()->flagged = true;
    }
    const auto track = makeVoiceTrack(state);
    track->add(part);
    editor.add(editor.project(), 0, track);

    for (std::size_t i = 0; i < kSong.size(); ++i) {
        sing(editor, verses[i], kSong[i].typed);
    }
    while (editor.undo()) {
    }
    editor.terminate();
}

void run(const char* path) {
    const ModuleFile module(path);
    if (!module.initDll()) {
        throw std::runtime_error("expected InitDll to succeed, it did not");
    }
    {
        const auto factory = Steinberg::owned(module.getPluginFactory());
        printClassRecord(readClassRecord(*factory));
        singSong(*factory);
    }
    if (!module.exitDll()) {
        throw std::runtime_error("expected ExitDll to succeed, it did not");
    }
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
