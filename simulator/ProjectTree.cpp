// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/ProjectTree.h"

#include "host/InterfaceId.h"

#include <algorithm>
#include <iterator>

namespace wybeta::simulator {

TreeNode::TreeNode(SharedState state, const char* className, std::string kind)
    : Implements(std::move(state), className), kind_(std::move(kind)) {}

// Takes the tree apart level by level: folders nest deeper than a stack would.
TreeNode::~TreeNode() {
    while (!items_.empty()) {
        const Handle<TreeItem> item = std::move(items_.back());
        items_.pop_back();
        auto* const node = dynamic_cast<TreeNode*>(item.get());
        if (node != nullptr && node->isHeldOnce()) {
            std::move(node->items_.begin(), node->items_.end(), std::back_inserter(items_));
            node->items_.clear();
        }
    }
}

void TreeNode::insert(std::size_t index, Handle<TreeItem> item) {
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(index), std::move(item));
}

std::size_t TreeNode::remove(const TreeItem& item) {
    const auto place = std::find_if(items_.begin(), items_.end(),
                                    [&item](const auto& other) { return other.get() == &item; });
    const auto index = static_cast<std::size_t>(place - items_.begin());
    items_.erase(place);
    return index;
}

bool TreeNode::isKind(Steinberg::FIDString kind) {
    return enter("IProjectItem.isKind") != Answer::Refuse && kind_ == kind;
}

host::IProjectNodeIterator* TreeNode::children() {
    if (enter("IProjectNode.children") == Answer::Refuse ||
        (noIteratorWhenEmpty_ && items_.empty())) {
        return nullptr;
    }
    const auto iterator = makeHandle<TreeIterator>(Handle<TreeNode>(this));
    return handOver<host::IProjectNodeIterator>(iterator.get());
}

Steinberg::FUnknown* TreeNode::timeContext(host::IProjectItem* part) {
    if (enter("IProjectNotificationArgument.timeContext") == Answer::Refuse) {
        return nullptr;
    }
    const auto context = makeHandle<TimeContext>(state(), dynamic_cast<Part&>(*part).start());
    return handOver<Steinberg::FUnknown>(context.get());
}

void* TreeNode::interfaceFor(const Steinberg::TUID id) {
    if (host::sameId(id, Steinberg::FUnknown_iid)) {
        return static_cast<host::IProjectItem*>(this);
    }
    return host::sameId(id, host::IProjectNode::iid) ? static_cast<host::IProjectNode*>(this)
                                                     : nullptr;
}

void* TimeContext::interfaceFor(const Steinberg::TUID id) {
    return host::sameId(id, Steinberg::FUnknown_iid) ? static_cast<Steinberg::FUnknown*>(this)
                                                     : nullptr;
}

host::IProjectItem* TreeIterator::next() {
    if (enter("IProjectNodeIterator.next") == Answer::Refuse || index_ >= node_->items().size()) {
        return nullptr;
    }
    const auto& item = node_->items()[index_++];
    return item ? item->ownInterface() : nullptr;
}

bool TreeIterator::atEnd() {
    return enter("IProjectNodeIterator.atEnd") == Answer::Refuse || index_ >= node_->items().size();
}

void* TreeIterator::interfaceFor(const Steinberg::TUID id) {
    return host::sameId(id, Steinberg::FUnknown_iid)
               ? static_cast<host::IProjectNodeIterator*>(this)
               : nullptr;
}

} // namespace wybeta::simulator
