// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host answers badly, at every call that the extension makes in turn. What becomes of the
// lyrics is the host's own affair then; the extension has to let go of everything, to come to an
// end and to be right again as soon as the host is.
#include "simulator/CallInterceptor.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "tests/TrackNotes.h"
#include "tests/faults/FaultSession.h"
#include "tests/faults/FaultTest.h"
#include "tests/faults/Scenario.h"

#include "pluginterfaces/base/fvariant.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

namespace wybeta::tests {
namespace {

using simulator::Answer;
using simulator::HostCall;
using simulator::HostObject;
using Steinberg::FVariant;
using Steinberg::kResultFalse;
using Steinberg::kResultOk;
using Steinberg::tresult;

class MisbehavingHost : public FaultTest, public testing::WithParamInterface<Scenario> {
protected:
    static void answerFromEachCall(const MakeAnswerer& make) {
        FaultTest::answerFromEachCall(GetParam(), make);
    }

    static void actInEachCall(const std::function<void(FaultSession&)>& act) {
        FaultTest::actInEachCall(GetParam(), act);
    }

    // Answers for one attribute in each play.
    static void answerForEachAttribute(const FaultyNote::Answerer& answer) {
        playAtEachPlace(GetParam(), [&answer](Play& play, std::uint64_t number) {
            std::uint64_t count = 0;
            play.session.answerer = [&](FVariant& value) {
                return ++count == number ? answer(value) : std::nullopt;
            };
            play.act();
            play.session.answerer = nullptr;
            expectSound(play);
            return count >= number;
        });
    }
};

TEST_P(MisbehavingHost, RefusesACall) {
    answerFromEachCall([] {
        return [isFirst = true](FaultSession&, const HostCall&) mutable {
            return std::exchange(isFirst, false) ? Answer::Refuse : Answer::Normal;
        };
    });
}

// An iterator that is treated so says for ever that it is not at its end, and gives nothing.
TEST_P(MisbehavingHost, RefusesACallAndAllOfItsKindThatFollowToTheSameObject) {
    answerFromEachCall([] {
        return [object = static_cast<const HostObject*>(nullptr),
                name = std::string_view()](FaultSession&, const HostCall& call) mutable {
            if (object == nullptr) {
                object = &call.object;
                name = call.name;
            }
            return object == &call.object && name == call.name ? Answer::Refuse : Answer::Normal;
        };
    });
}

TEST_P(MisbehavingHost, RefusesEverythingFromACallOn) {
    answerFromEachCall(
        [] { return [](FaultSession&, const HostCall&) { return Answer::Refuse; }; });
}

TEST_P(MisbehavingHost, AnswersForAnAttributeThatItHasNone) {
    answerForEachAttribute([](FVariant&) { return kResultFalse; });
    answerForEachAttribute([](FVariant& value) {
        value.setString16(u"a text that is none");
        return kResultFalse;
    });
}

TEST_P(MisbehavingHost, AnswersForAnAttributeWithWhatIsNoText) {
    answerForEachAttribute([](FVariant&) { return kResultOk; });
    answerForEachAttribute([](FVariant& value) {
        value.setInt(0x7FFFFFFFFFFF);
        return kResultOk;
    });
    answerForEachAttribute([](FVariant& value) {
        value.setFloat(0.5);
        return kResultOk;
    });
    answerForEachAttribute([](FVariant& value) {
        value.setString8("bytes");
        return kResultOk;
    });
    answerForEachAttribute([](FVariant& value) {
        value.setString8(nullptr);
        return kResultOk;
    });
    answerForEachAttribute([](FVariant& value) {
        value.setString16(nullptr);
        return kResultOk;
    });
    answerForEachAttribute([](FVariant& value) {
        value.setObject(nullptr);
        value.setOwner(true);
        return kResultOk;
    });
}

TEST_P(MisbehavingHost, AnswersForAnAttributeWithBrokenText) {
    for (const auto* const text : {u"\xD83C", u"か\xD83Cき", u"か\xDFB5き", u"か\xDFB5\xD83Cき",
                                   u"かき\xD83C", u"かき\xDFB5", u"か[\xD83C]", u"ab\xD83C-"}) {
        answerForEachAttribute([text](FVariant& value) {
            value.setString16(text);
            return kResultOk;
        });
    }
}

TEST_P(MisbehavingHost, RemovesANoteInACall) {
    actInEachCall([](FaultSession& session) { session.remove(partOf(session.melody()), 0); });
    actInEachCall([](FaultSession& session) { session.remove(partOf(session.innerTrack()), 0); });
}

TEST_P(MisbehavingHost, AddsANoteInACall) {
    actInEachCall(
        [](FaultSession& session) { partOf(session.melody()).insert(0, session.makeNote("new")); });
    actInEachCall(
        [](FaultSession& session) { partOf(session.innerTrack()).add(session.makeNote("new")); });
}

TEST_P(MisbehavingHost, RemovesAPartInACall) {
    actInEachCall([](FaultSession& session) { session.remove(session.melody(), 0); });
    actInEachCall([](FaultSession& session) { session.remove(session.innerTrack(), 0); });
}

TEST_P(MisbehavingHost, AddsAPartInACall) {
    actInEachCall([](FaultSession& session) {
        session.melody().insert(0, session.makePart({"new", "newer"}));
    });
}

TEST_P(MisbehavingHost, RemovesATrackInACall) {
    actInEachCall([](FaultSession& session) { session.remove(session.project(), 0); });
    actInEachCall([](FaultSession& session) { session.remove(session.folder(), 0); });
}

TEST_P(MisbehavingHost, AddsATrackInACall) {
    actInEachCall([](FaultSession& session) {
        session.project().insert(0, session.makeTrack({"new", "newer"}));
    });
    actInEachCall([](FaultSession& session) {
        session.folder().add(session.makeTrack({"new", "newer"}));
    });
}

TEST_P(MisbehavingHost, RemovesAFolderInACall) {
    actInEachCall([](FaultSession& session) { session.remove(session.project(), 2); });
}

TEST_P(MisbehavingHost, AddsAFolderInACall) {
    actInEachCall([](FaultSession& session) {
        const auto folder = simulator::makeHandle<simulator::Folder>(session.state());
        folder->add(session.makeTrack({"new", "newer"}));
        session.folder().insert(0, folder);
    });
}

TEST_P(MisbehavingHost, RemovesEverythingInACall) {
    actInEachCall([](FaultSession& session) {
        while (!session.project().items().empty()) {
            session.remove(session.project(), 0);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(In, MisbehavingHost, testing::ValuesIn(scenarios()), nameOf);

} // namespace
} // namespace wybeta::tests
