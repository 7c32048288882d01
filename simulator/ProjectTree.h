// SPDX-License-Identifier: GPL-3.0-or-later
//
// The project as the simulated host keeps it: a tree of folders, tracks, parts and events.
#pragma once

#include "host/IProjectNode.h"
#include "simulator/HostObject.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace wybeta::simulator {

// Anything that has a place in the tree.
class TreeItem : public HostObject {
public:
    using HostObject::HostObject;

    // The own interface, which iterators yield.
    virtual host::IProjectItem* ownInterface() = 0;
};

// A node with children: a folder, a track, a part, or of any other kind.
class TreeNode : public Implements<TreeItem, host::IProjectItem, host::IProjectNode,
                                   host::IProjectNotificationArgument> {
public:
    TreeNode(SharedState state, const char* className, std::string kind);
    ~TreeNode() override;

    host::IProjectItem* ownInterface() override { return this; }
    // What is passed when the module is told of a change under this node.
    Steinberg::FUnknown* argument() { return static_cast<IProjectNotificationArgument*>(this); }
    const std::vector<Handle<TreeItem>>& items() const { return items_; }

    // Null in the list is a child that the iterator yields as null.
    void add(Handle<TreeItem> item) { insert(items_.size(), std::move(item)); }
    void insert(std::size_t index, Handle<TreeItem> item);
    // Returns the index at which the item was.
    std::size_t remove(const TreeItem& item);

    // A node without children either answers no iterator or one that is at its end.
    void answerNoIteratorWhenEmpty() { noIteratorWhenEmpty_ = true; }

    bool PLUGIN_API isKind(Steinberg::FIDString kind) override;
    host::IProjectNodeIterator* PLUGIN_API children() override;
    Steinberg::FUnknown* PLUGIN_API timeContext(host::IProjectItem* part) override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    std::string kind_;
    std::vector<Handle<TreeItem>> items_;
    bool noIteratorWhenEmpty_ = false;
};

class Folder : public TreeNode {
public:
    explicit Folder(SharedState state) : TreeNode(std::move(state), "Folder", "folder") {}
};

// A part of a track. The times of its events are counted from the part's own start.
class Part : public TreeNode {
public:
    explicit Part(SharedState state, double start = 0)
        : TreeNode(std::move(state), "Part", "part"), start_(start) {}

    double start() const { return start_; }

private:
    double start_;
};

// What the times of a part's events are counted in.
class TimeContext : public Implements<HostObject, Steinberg::FUnknown> {
public:
    TimeContext(SharedState state, double partStart)
        : Implements(std::move(state), "TimeContext"), partStart_(partStart) {}

    double partStart() const { return partStart_; }

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    double partStart_;
};

// The children of a node, read from the tree at every step, so that changes in the middle show.
class TreeIterator : public Implements<HostObject, host::IProjectNodeIterator> {
public:
    explicit TreeIterator(Handle<TreeNode> node)
        : Implements(node->state(), "TreeIterator"), node_(std::move(node)) {}

    host::IProjectItem* PLUGIN_API next() override;
    bool PLUGIN_API atEnd() override;

protected:
    void* interfaceFor(const Steinberg::TUID id) override;

private:
    Handle<TreeNode> node_;
    std::size_t index_ = 0;
};

} // namespace wybeta::simulator
