// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/Editor.h"

#include "host/IProjectHost.h"

#include <memory>
#include <string>
#include <utility>

namespace wybeta::simulator {

Change typingChange(Event& note, std::string_view lyric) {
    const Handle<Event> event(&note);
    return {[event, text = std::string(lyric)] {
                event->setLyric(text);
                event->flagged = true;
            },
            [event, text = note.lyric(), flagged = note.flagged] {
                event->setLyric(text);
                event->flagged = flagged;
            }};
}

Change insertion(TreeNode& parent, std::size_t index, const Handle<TreeItem>& item) {
    const Handle<TreeNode> node(&parent);
    return {[node, index, item] { node->insert(index, item); },
            [node, item] { node->remove(*item); }};
}

Change removal(TreeNode& parent, TreeItem& item) {
    const Handle<TreeNode> node(&parent);
    const Handle<TreeItem> kept(&item);
    // Where the item was is known when it goes: other changes of the edit may come first.
    const auto index = std::make_shared<std::size_t>(0);
    return {[node, kept, index] { *index = node->remove(*kept); },
            [node, kept, index] { node->insert(*index, kept); }};
}

Editor::Editor(ExtensionInstance extension)
    : document_(makeHandle<Document>(state_)), manager_(makeHandle<ProjectManager>(state_)),
      host_(makeHandle<ProjectHost>(state_, manager_)),
      project_(makeHandle<TreeNode>(state_, "Project", "project")),
      extension_(std::move(extension)) {
    manager_->documents.push_back(document_);
    extension_->base().initialize(static_cast<host::IProjectHost*>(host_.get()));
    extension_->notification().documentOpened(document_.get());
}

Editor::Editor(const Editor& first, Further /*further*/)
    : state_(first.state_), document_(makeHandle<Document>(state_)), manager_(first.manager_),
      host_(first.host_), project_(makeHandle<TreeNode>(state_, "Project", "project")),
      extension_(first.extension_), isFurther_(true) {
    manager_->documents.push_back(document_);
    extension_->notification().documentOpened(document_.get());
}

Editor::~Editor() {
    if (extension_) {
        terminate();
    }
}

void Editor::type(Event& note, std::string_view lyric) {
    edit({typingChange(note, lyric)});
}

void Editor::add(TreeNode& parent, std::size_t index, const Handle<TreeItem>& item) {
    edit({insertion(parent, index, item)});
}

void Editor::remove(TreeNode& parent, TreeItem& item) {
    edit({removal(parent, item)});
}

void Editor::edit(std::vector<Change> changes) {
    for (const auto& change : changes) {
        change.apply();
    }
    const auto context = makeHandle<EditContext>(state_);
    if (extension_) {
        extension_->editHook().hookEdit(project_->argument(), context.get());
    }
    done_.push_back({std::move(changes), context->steps()});
    undone_.clear();
}

bool Editor::undo() {
    if (done_.empty()) {
        return false;
    }
    Edit edit = std::move(done_.back());
    done_.pop_back();
    for (auto step = edit.steps.rbegin(); step != edit.steps.rend(); ++step) {
        (*step)->undo();
    }
    for (auto change = edit.changes.rbegin(); change != edit.changes.rend(); ++change) {
        change->revert();
    }
    undone_.push_back(std::move(edit));
    return true;
}

bool Editor::redo() {
    if (undone_.empty()) {
        return false;
    }
    Edit edit = std::move(undone_.back());
    undone_.pop_back();
    for (const auto& change : edit.changes) {
        change.apply();
    }
    for (const auto& step : edit.steps) {
        step->redo();
    }
    done_.push_back(std::move(edit));
    return true;
}

void Editor::forgetEdits() {
    done_.clear();
    undone_.clear();
}

void Editor::notify() {
    extension_->notification().projectChanged(project_->argument());
}

void Editor::terminate() {
    extension_->notification().documentClosing(document_.get());
    if (isFurther_) {
        manager_->close(*document_);
    } else {
        extension_->base().terminate();
    }
    extension_.reset();
}

} // namespace wybeta::simulator
