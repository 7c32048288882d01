// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/LongTrack.h"

#include "simulator/LoadedModule.h"
#include "simulator/Track.h"

#include "pluginterfaces/base/ipluginbase.h"
#include "pluginterfaces/base/smartpointer.h"

namespace wybeta::bench {

namespace {

using namespace simulator;

Steinberg::IPluginFactory& factory() {
    static const LoadedModule module(WYBETA_MODULE_FILE);
    static const auto factory = Steinberg::owned(module.getPluginFactory());
    return *factory;
}

} // namespace

LongTrack::LongTrack(std::size_t notes, std::size_t flaggedEvery)
    : editor_(factory()), part_(makeHandle<Part>(editor_.state())) {
    for (std::size_t i = 0; i < notes; ++i) {
        const auto note = makeHandle<Event>(editor_.state());
        note->setLyric("さくら");
        note->flagged = i % flaggedEvery == 0;
        part_->add(note);
    }
    const auto track = makeVoiceTrack(editor_.state());
    track->add(part_);
    editor_.project().add(track);
    editor_.notify();
}

Event& LongTrack::note(std::size_t position) {
    return static_cast<Event&>(*part_->items()[position]);
}

void LongTrack::setLyrics(const char* lyric) {
    for (const auto& item : part_->items()) {
        static_cast<Event&>(*item).setLyric(lyric);
    }
}

} // namespace wybeta::bench
