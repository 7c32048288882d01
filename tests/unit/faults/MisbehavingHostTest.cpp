// SPDX-License-Identifier: GPL-3.0-or-later
//
// The host answers badly, at every call that the extension makes in turn. What becomes of the
// lyrics is the host's own affair then; the extension has to let go of everything, to come to an
// end and to be right again as soon as the host is.
#include "simulator/CallInterceptor.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "tests/unit/faults/FaultSession.h"
#include "tests/unit/faults/FaultTest.h"
#include "tests/unit/faults/Scenario.h"

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

class MisbehavingHost : public FaultTest {
protected:
    // Answers a call from that number on.
    using Answerer = std::function<Answer(FaultSession&, const HostCall&)>;
    // Returns the answerer of one play.
    using MakeAnswerer = std::function<Answerer()>;

    static void answerFromEachCall(const MakeAnswerer& make) {
        playAtEachPlace([&make](Play& play, std::uint64_t number) {
            bool isReached = false;
            const auto answer = make();
            play.session.interceptFrom(number, [&](const HostCall& call) {
                isReached = true;
                return answer(play.session, call);
            });
            act(play);
            expectSound(play);
            return isReached;
        });
    }

    // Acts once in each play.
    static void actInEachCall(const std::function<void(FaultSession&)>& change) {
        answerFromEachCall([&change]() -> Answerer {
            return [&change, hasActed = false](FaultSession& session, const HostCall&) mutable {
                if (!hasActed) {
                    hasActed = true;
                    change(session);
                }
                return Answer::Normal;
            };
        });
    }

    // Answers for one attribute in each play.
    static void answerForEachAttribute(const FaultyNote::Answerer& answer) {
        playAtEachPlace([&answer](Play& play, std::uint64_t number) {
            std::uint64_t count = 0;
            play.session.answerer = [&](FVariant& value) {
                return ++count == number ? answer(value) : std::nullopt;
            };
            act(play);
            play.session.answerer = nullptr;
            expectSound(play);
            return count >= number;
        });
    }

private:
    // The table lists notes that are or were in the project. What was no note when its track was
    // met has an empty record.
    static void expectSound(Play& play) {
        expectReferencesBack(play);
        for (const auto& [track, list] : play.session.picture().table) {
            EXPECT_NE(track, "unknown");
            for (const auto& line : list) {
                EXPECT_TRUE(line.rfind("note ", 0) == 0 || line == "unknown (0) at 0 for 0:  / ")
                    << line;
            }
        }
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
    actInEachCall(
        [](FaultSession& session) { session.remove(FaultSession::partOf(session.melody()), 0); });
    actInEachCall([](FaultSession& session) {
        session.remove(FaultSession::partOf(session.innerTrack()), 0);
    });
}

TEST_P(MisbehavingHost, AddsANoteInACall) {
    actInEachCall([](FaultSession& session) {
        FaultSession::partOf(session.melody()).insert(0, session.makeNote("new"));
    });
    actInEachCall([](FaultSession& session) {
        FaultSession::partOf(session.innerTrack()).add(session.makeNote("new"));
    });
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
