// SPDX-License-Identifier: GPL-3.0-or-later
//
// Which tracks the extension takes for the voice synthesizer's.
#include "host/IProjectNode.h"
#include "host/IProjectTrack.h"
#include "host/InterfaceId.h"
#include "simulator/CallInterceptor.h"
#include "simulator/HostObject.h"
#include "simulator/Track.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <utility>
#include <vector>

namespace wybeta::tests {
namespace {

using simulator::Answer;
using simulator::Element;
using simulator::Plugin;

using Elements = std::vector<Handle<Element>>;

// A track that does not answer one of its interfaces.
class SilentTrack : public Track {
public:
    SilentTrack(SharedState state, const Steinberg::TUID silent)
        : Track(std::move(state)), silent_(silent) {}

protected:
    void* interfaceFor(const Steinberg::TUID id) override {
        return host::sameId(id, silent_) ? nullptr : Track::interfaceFor(id);
    }

private:
    const Steinberg::int8* silent_;
};

// A device that claims to have more elements than anybody could ask for, all of them null.
class BoastfulElement : public Element {
public:
    using Element::Element;

    int asked = 0;

    Steinberg::int32 PLUGIN_API countElements() override {
        return std::numeric_limits<Steinberg::int32>::max();
    }
    host::IProjectElement* PLUGIN_API element(Steinberg::int32 /*index*/) override {
        if (++asked > 10'000'000) {
            throw std::runtime_error("expected an end to the questions, there is none");
        }
        return nullptr;
    }
};

class TargetTrack : public SessionTest {
protected:
    Handle<Element> element(const char* type, const Elements& children = {}) const {
        auto made = makeHandle<Element>(state(), type);
        for (const auto& child : children) {
            made->add(child);
        }
        return made;
    }

    // An element that answers IProjectPluginSlot.
    Handle<Element> holder(Handle<Plugin> plugin) const {
        auto made = element("Instrument");
        made->holdPlugin(std::move(plugin));
        return made;
    }

    Handle<Element> synthesizer() const { return holder(plugin(Plugin::Kind::VoiceSynthesizer)); }

    Handle<Plugin> plugin(Plugin::Kind kind) const { return makeHandle<Plugin>(state(), kind); }

    Handle<Element> goodSlot() const { return element("Slot", {synthesizer()}); }

    // Every "Slot" that does not count.
    Elements badSlots() const {
        return {element("Slot"),
                element("Slot", {synthesizer(), synthesizer()}),
                element("Slot", {Handle<Element>()}),
                element("Slot", {element("Instrument")}),
                element("Slot", {holder({})}),
                element("Slot", {holder(plugin(Plugin::Kind::Other))}),
                element("Slot", {element("Rack", {synthesizer()})})};
    }

    // Whether the lyrics of a track with such a device are divided.
    bool isTarget(const Elements& elements) {
        const auto track = makeHandle<Track>(state());
        track->setDevice(element("Device", elements));
        return isTargetTrack(track);
    }

    bool isTargetTrack(const Handle<Track>& track) {
        track->add(makePart({"", ""}));
        project().add(track);
        editor().notify();
        typeInto(noteAt(*track, 0), "かき");
        const auto steps = hook();
        project().remove(*track);
        const bool isDivided = noteAt(*track, 0).lyric() == "かき[k a]";
        EXPECT_EQ(steps.size(), isDivided ? 1u : 0u);
        return isDivided;
    }
};

TEST_F(TargetTrack, IsAnInstrumentTrackWithTheVoiceSynthesizerInItsSlot) {
    EXPECT_TRUE(isTarget({goodSlot()}));
}

TEST_F(TargetTrack, IsOfTheKindInstrumentAndNoOther) {
    for (const char* kind : {"audio", "Instrument", "instruments", "part", ""}) {
        const auto track = makeHandle<Track>(state(), kind);
        track->setDevice(element("Device", {goodSlot()}));
        EXPECT_FALSE(isTargetTrack(track)) << kind;
    }
}

TEST_F(TargetTrack, HasADevice) {
    EXPECT_FALSE(isTargetTrack(makeHandle<Track>(state())));
}

TEST_F(TargetTrack, HasADeviceWithElements) {
    EXPECT_FALSE(isTarget(Elements()));
}

TEST_F(TargetTrack, AnswersIProjectTrack) {
    const auto track = makeHandle<SilentTrack>(state(), host::IProjectTrack::iid);
    track->setDevice(element("Device", {goodSlot()}));
    EXPECT_FALSE(isTargetTrack(track));
}

TEST_F(TargetTrack, AnswersIProjectNode) {
    const auto track = makeHandle<SilentTrack>(state(), host::IProjectNode::iid);
    track->setDevice(element("Device", {goodSlot()}));
    EXPECT_FALSE(isTargetTrack(track));
}

TEST_F(TargetTrack, MayHaveNullElementsAroundItsSlot) {
    EXPECT_TRUE(isTarget({{}, element("Inserts"), {}, {}, goodSlot(), {}}));
}

TEST_F(TargetTrack, HasASlotThatIsSpelledExactlySo) {
    for (const char* type : {"slot", "SLOT", "Slots", "Slo", "Slot ", " Slot", ""}) {
        EXPECT_FALSE(isTarget({element(type, {synthesizer()})})) << type;
    }
}

TEST_F(TargetTrack, HasASlotAmongTheElementsOfTheDeviceItself) {
    EXPECT_FALSE(isTarget({element("Rack", {goodSlot()})}));
    const auto track = makeHandle<Track>(state());
    track->setDevice(goodSlot());
    EXPECT_FALSE(isTargetTrack(track));
}

TEST_F(TargetTrack, HasASlotWithExactlyOneElementThatHoldsTheSynthesizer) {
    for (const auto& slot : badSlots()) {
        EXPECT_FALSE(isTarget({slot}));
    }
}

TEST_F(TargetTrack, MayHaveTheSynthesizerInALaterSlot) {
    for (const auto& slot : badSlots()) {
        EXPECT_TRUE(isTarget({slot, goodSlot()}));
    }
    auto elements = badSlots();
    elements.push_back(goodSlot());
    EXPECT_TRUE(isTarget(elements));
}

TEST_F(TargetTrack, IsAskedNoFurtherThanItsFirstGoodSlot) {
    const auto later = element("Slot", {synthesizer()});
    state()->calls.intercept([&later](const HostCall& call) {
        EXPECT_NE(&call.object, later.get()) << call.name;
        return Answer::Normal;
    });
    EXPECT_TRUE(isTarget({goodSlot(), later}));
}

TEST_F(TargetTrack, HasADeviceThatIsAskedForTheElementsThatItHas) {
    int asked = 0;
    int counted = 0;
    state()->calls.intercept([&](const HostCall& call) {
        asked += call.name == "IProjectElement.element" ? 1 : 0;
        counted += call.name == "IProjectElement.countElements" ? 1 : 0;
        return Answer::Normal;
    });
    EXPECT_FALSE(isTarget({element("Rack"), element("Rack"), element("Rack")}));
    EXPECT_GT(counted, 0);
    EXPECT_EQ(asked, 3 * counted);
}

TEST_F(TargetTrack, IsNotOneWhileTheHostRefusesWhatIsAsked) {
    for (const auto* name :
         {"IProjectItem.isKind", "IProjectTrack.deviceElement", "IProjectElement.countElements",
          "IProjectElement.element", "IProjectElement.typeName", "IProjectPluginSlot.plugin"}) {
        state()->calls.intercept([name](const HostCall& call) {
            return call.name == name ? Answer::Refuse : Answer::Normal;
        });
        EXPECT_FALSE(isTarget({goodSlot()})) << name;
    }
}

TEST_F(TargetTrack, IsNotOneWithADeviceThatClaimsEndlessElements) {
    const auto track = makeHandle<Track>(state());
    const auto device = makeHandle<BoastfulElement>(state(), "Device");
    track->setDevice(device);
    EXPECT_FALSE(isTargetTrack(track));
    EXPECT_GT(device->asked, 0);
    EXPECT_TRUE(isTarget({goodSlot()}));
}

TEST_F(TargetTrack, IsUnknownUntilItHasTheSynthesizer) {
    const auto track = makeTrack({{"", ""}});
    track->setDevice(simulator::makeDevice(state(), Plugin::Kind::Other));
    project().add(track);
    editor().notify();
    hook();

    track->setDevice(simulator::makeDevice(state(), Plugin::Kind::VoiceSynthesizer));
    typeInto(noteAt(*track, 0), "かき");
    EXPECT_TRUE(hook().empty());
    EXPECT_EQ(lyricsOf(*track), (Lyrics{"かき", ""}));
}

TEST_F(TargetTrack, IsForgottenWhenItLosesTheSynthesizer) {
    auto& track = addKnownTrack({"", ""});
    track.setDevice(simulator::makeDevice(state(), Plugin::Kind::Other));
    editor().notify();
    track.setDevice(simulator::makeDevice(state(), Plugin::Kind::VoiceSynthesizer));

    typeInto(noteAt(track, 0), "かき");
    EXPECT_TRUE(hook().empty());
    typeInto(noteAt(track, 0), "さし");
    EXPECT_EQ(hook().size(), 1u);
    EXPECT_EQ(lyricsOf(track), (Lyrics{"さし[s a]", "[sh i]"}));
}

TEST_F(TargetTrack, GivesBackAllThatTheTestTook) {
    const auto before = state()->ledger.outstanding();
    isTarget({goodSlot()});
    for (const auto& slot : badSlots()) {
        isTarget({{}, slot});
    }
    EXPECT_EQ(state()->ledger.outstanding(), before);
}

} // namespace
} // namespace wybeta::tests
