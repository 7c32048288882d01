// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tests/HandMadeObject.h"
#include "tests/InterfaceIds.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wybeta::tests {

// A host made of nothing but tables of functions, with a manager and, at first, no documents.
struct HandMadeHost {
    using GetInterface = std::uint32_t(const void*, void**);
    using TakeSink = std::int32_t(void*);

    HandMadeHost() {
        projectHost.answer(kProjectHostId, projectHost);
        projectHost.answer(kProjectManagerId, manager);
    }

    HandMadeObject projectHost;
    HandMadeObject manager;
    std::vector<void*> documents;

    Slot<3, GetInterface> getInterface{
        projectHost, [this](const void* id, void** found) { return askHost(id, found); }};
    Slot<3, std::int32_t()> countDocuments{
        manager, [this] { return static_cast<std::int32_t>(documents.size()); }};
    Slot<4, void*(std::int32_t)> getDocument{
        manager, [this](std::int32_t index) { return documents.at(std::size_t(index)); }};
    Slot<6, TakeSink> addNotification{manager, [](void*) { return 0; }};
    Slot<7, TakeSink> removeNotification{manager, [](void*) { return 0; }};

private:
    std::uint32_t askHost(const void* id, void** found) {
        return callSlot<GetInterface>(projectHost.address(), 0, id, found);
    }
};

} // namespace wybeta::tests
