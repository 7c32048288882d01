// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/EditContext.h"
#include "simulator/Event.h"
#include "simulator/ExtensionInstance.h"
#include "simulator/HostObject.h"
#include "simulator/ProjectHost.h"
#include "simulator/ProjectTree.h"

#include "pluginterfaces/base/ipluginbase.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace wybeta::simulator {

// One step of the user's own, which the editor itself can do and undo.
struct Change {
    std::function<void()> apply;
    std::function<void()> revert;
};

// An editor with one open project, one extension and an undo history, as a user works with it.
class Editor {
public:
    // Creates the extension, initialises it and opens the document.
    explicit Editor(Steinberg::IPluginFactory& factory) : Editor(ExtensionInstance(factory)) {}
    // Works with an extension that others may hold as well, and use before and after it.
    explicit Editor(ExtensionInstance extension);
    // Terminates if that has not happened yet.
    ~Editor();
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    // Opens a further project in the same editor, which has to outlive it: it has its own history,
    // and shares the extension, which knows the tracks of the last project that it heard of. Before
    // the first edit after work on another project comes `notify`.
    Editor openProject() const { return Editor(*this, Further()); }

    const SharedState& state() const { return state_; }
    // The top of the project tree, under which the tracks and folders are.
    TreeNode& project() const { return *project_; }
    // The extension, until it is terminated.
    const ExtensionInstance& extension() const { return *extension_; }

    // Each of these is one edit that the user can undo: the change, then the edit hook.
    void type(Event& note, std::string_view lyric);
    void add(TreeNode& parent, std::size_t index, const Handle<TreeItem>& item);
    void remove(TreeNode& parent, TreeItem& item);
    void edit(std::vector<Change> changes);

    // Undoes or redoes the last edit. Returns false when there is none.
    bool undo();
    bool redo();
    bool canUndo() const { return !done_.empty(); }
    bool canRedo() const { return !undone_.empty(); }
    // Lets go of all edits, so that none can be undone or redone any more.
    void forgetEdits();
    // The extension's steps of the last edit; there has to be one.
    const EditSteps& lastSteps() const { return done_.back().steps; }

    // Tells the extension that the project changed, outside any edit. Not after `terminate`.
    void notify();

    // Closes the document and gives the extension back, which is terminated with the project that
    // was opened first. The history stays. To be called once.
    void terminate();

private:
    struct Further {};
    Editor(const Editor& first, Further further);

    struct Edit {
        std::vector<Change> changes;
        EditSteps steps;
    };

    SharedState state_ = std::make_shared<HostState>();
    Handle<Document> document_;
    Handle<ProjectManager> manager_;
    Handle<ProjectHost> host_;
    Handle<TreeNode> project_;
    std::optional<ExtensionInstance> extension_;
    bool isFurther_ = false;
    std::vector<Edit> done_;
    std::vector<Edit> undone_;
};

// What typing a lyric into a note changes: the text, and that the note starts a division.
Change typingChange(Event& note, std::string_view lyric);
Change insertion(TreeNode& parent, std::size_t index, const Handle<TreeItem>& item);
Change removal(TreeNode& parent, TreeItem& item);

} // namespace wybeta::simulator
