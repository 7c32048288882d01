// SPDX-License-Identifier: GPL-3.0-or-later
//
// Projects that never end. The extension leaves each of them, and divides the next lyric as ever.
#include "host/IProjectEvent.h"
#include "host/IProjectNode.h"
#include "host/IProjectTrack.h"
#include "host/InterfaceId.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectTree.h"
#include "simulator/Track.h"
#include "tests/EndlessNode.h"
#include "tests/TrackNotes.h"
#include "tests/session/SessionTest.h"

#include "pluginterfaces/base/fvariant.h"

#include <gtest/gtest.h>

#include <deque>
#include <string_view>
#include <utility>

namespace wybeta::tests {
namespace {

// An object of a host that keeps no books, since a walk meets millions of them. It lives as long as
// the test keeps it. Answers all of its interfaces.
template <class... Interfaces>
class PlainObject : public Interfaces... {
public:
    PlainObject() = default;
    virtual ~PlainObject() { EXPECT_EQ(references_, 0); }
    PlainObject(const PlainObject&) = delete;
    PlainObject& operator=(const PlainObject&) = delete;

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID id, void** object) override {
        *object = nullptr;
        if (!(answers<Interfaces>(id, object) || ...)) {
            return Steinberg::kNoInterface;
        }
        ++references_;
        return Steinberg::kResultOk;
    }
    Steinberg::uint32 PLUGIN_API addRef() override {
        return static_cast<Steinberg::uint32>(++references_);
    }
    Steinberg::uint32 PLUGIN_API release() override {
        return static_cast<Steinberg::uint32>(--references_);
    }

private:
    template <class Interface>
    bool answers(const Steinberg::TUID id, void** object) {
        if (!host::sameId(id, Interface::iid)) {
            return false;
        }
        *object = static_cast<Interface*>(this);
        return true;
    }

    int references_ = 0;
};

// A folder with a new folder in it, which is made when somebody looks.
class DeepFolder
    : public PlainObject<host::IProjectItem, host::IProjectNode, host::IProjectNodeIterator> {
public:
    // The folders that were made, each of which is in the one before it.
    struct Tree;

    explicit DeepFolder(Tree& tree) : tree_(tree) {}

    bool PLUGIN_API isKind(Steinberg::FIDString kind) override {
        return std::string_view(kind) == "folder";
    }
    host::IProjectNodeIterator* PLUGIN_API children() override {
        addRef();
        return this;
    }
    host::IProjectItem* PLUGIN_API next() override;
    bool PLUGIN_API atEnd() override { return hasYielded_; }

private:
    Tree& tree_;
    bool hasYielded_ = false;
};

struct DeepFolder::Tree {
    Patience patience;
    std::deque<DeepFolder> folders;
};

host::IProjectItem* DeepFolder::next() {
    tree_.patience.use();
    hasYielded_ = true;
    return &tree_.folders.emplace_back(tree_);
}

// A voice track without children.
class PlainTrack : public PlainObject<host::IProjectItem, host::IProjectNode, host::IProjectTrack> {
public:
    explicit PlainTrack(host::IProjectElement& device) : device_(device) {}

    bool PLUGIN_API isKind(Steinberg::FIDString kind) override {
        return std::string_view(kind) == "instrument";
    }
    host::IProjectNodeIterator* PLUGIN_API children() override { return nullptr; }
    host::IProjectElement* PLUGIN_API deviceElement() override {
        device_.addRef();
        return &device_;
    }

private:
    host::IProjectElement& device_;
};

class PlainNote : public PlainObject<host::IPartEvent, host::IProjectNode, host::IProjectEvent,
                                     host::IProjectNoteEvent> {
public:
    bool PLUGIN_API isKind(Steinberg::FIDString /*kind*/) override { return false; }
    bool PLUGIN_API isFlagged() override { return false; }
    double PLUGIN_API start(Steinberg::FUnknown* /*timeContext*/) override { return 0; }
    double PLUGIN_API length(Steinberg::FUnknown* /*timeContext*/) override { return 1; }
    host::IProjectNodeIterator* PLUGIN_API children() override { return nullptr; }
    Steinberg::int32 PLUGIN_API value() override { return 60; }
    Steinberg::tresult PLUGIN_API setAttribute(Steinberg::FIDString /*key*/,
                                               Steinberg::FVariant* /*value*/,
                                               Steinberg::TPtrInt /*reserved1*/,
                                               Steinberg::TPtrInt /*reserved2*/) override {
        return Steinberg::kResultFalse;
    }
    Steinberg::tresult PLUGIN_API getAttribute(Steinberg::FIDString /*key*/,
                                               Steinberg::FVariant* /*value*/) override {
        return Steinberg::kResultFalse;
    }
};

// Puts an object into the simulated tree.
class PlainItem : public TreeItem {
public:
    PlainItem(SharedState state, host::IProjectItem& item)
        : TreeItem(std::move(state), "PlainItem"), item_(item) {}

    host::IProjectItem* ownInterface() override { return &item_; }

protected:
    void* interfaceFor(const Steinberg::TUID /*id*/) override { return nullptr; }

private:
    host::IProjectItem& item_;
};

class EndlessProject : public SessionTest {
protected:
    // Types into the track that comes before what never ends, and once more when that is gone.
    void expectDivides(Track& track, TreeNode& parent, const TreeItem& endless) {
        editor().type(noteAt(track, 0), "かき");
        EXPECT_EQ(lyricsOf(track), (Lyrics{"かき[k a]", "[k i]"}));
        parent.remove(endless);
        editor().notify();
        editor().type(noteAt(track, 0), "さし");
        EXPECT_EQ(lyricsOf(track), (Lyrics{"さし[s a]", "[sh i]"}));
    }
};

TEST_F(EndlessProject, OfFoldersInFoldersIsLeft) {
    DeepFolder::Tree tree;
    auto& track = addKnownTrack({"", ""});
    const auto item = makeHandle<PlainItem>(state(), tree.folders.emplace_back(tree));
    project().add(item);
    expectDivides(track, project(), *item);
}

TEST_F(EndlessProject, OfOneFolderAgainAndAgainIsLeft) {
    const auto folder = makeHandle<Folder>(state());
    folder->answerNoIteratorWhenEmpty();
    auto& track = addKnownTrack({"", ""});
    const auto endless = makeHandle<EndlessNode<Folder>>(
        state(), [&folder]() -> host::IProjectItem* { return folder->ownInterface(); });
    project().add(endless);
    expectDivides(track, project(), *endless);
}

TEST_F(EndlessProject, OfNewTracksIsLeft) {
    std::deque<PlainTrack> tracks;
    const auto device = simulator::makeDevice(state(), simulator::Plugin::Kind::VoiceSynthesizer);
    auto& track = addKnownTrack({"", ""});
    const auto endless = makeHandle<EndlessNode<Folder>>(
        state(), [&]() -> host::IProjectItem* { return &tracks.emplace_back(*device); });
    project().add(endless);
    expectDivides(track, project(), *endless);
}

TEST_F(EndlessProject, OfOneNoteAgainAndAgainIsLeft) {
    PlainNote note;
    auto& track = addKnownTrack({"", ""});
    auto& endlessTrack = addTrack(Lyrics{});
    const auto part =
        makeHandle<EndlessNode<Part>>(state(), [&note]() -> host::IProjectItem* { return &note; });
    endlessTrack.add(part);
    expectDivides(track, endlessTrack, *part);
}

} // namespace
} // namespace wybeta::tests
