// SPDX-License-Identifier: GPL-3.0-or-later
//
// Objects as they are in memory: a pointer to a table of plain functions. No C++ class of an
// interface takes part in making one, so they tell whether the slots that the C++ declarations
// compile to are those that the host has.
#pragma once

#include "tests/InterfaceIds.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace wybeta::tests {

// Slots 0 to 2 do the work of every object: answering IDs and counting references. A call of any
// other slot fails the test, until a Slot fills it.
class HandMadeObject {
public:
    static constexpr std::size_t kSlotCount = 32;

    HandMadeObject() : memory_(kTableStart + kSlotCount), slots_(kSlotCount) {
        memory_[0] = &memory_[kTableStart];
        memory_[1] = this;
        fillWithWrongSlots(std::make_index_sequence<kSlotCount>());
        fill(0, &queryInterface);
        fill(1, &addRef);
        fill(2, &release);
    }
    HandMadeObject(const HandMadeObject&) = delete;
    HandMadeObject& operator=(const HandMadeObject&) = delete;

    // The object under a C++ declaration of its interface.
    template <class Interface>
    Interface* as() {
        return reinterpret_cast<Interface*>(memory_.data());
    }

    // The object as others see it.
    void* address() { return memory_.data(); }

    // Makes queryInterface answer the ID with a face, which may be the object itself.
    void answer(const IdBytes& id, HandMadeObject& face) { faces_.emplace_back(id, &face); }

    // References that others have taken and not given back.
    int references() const { return references_; }

    // Acts when the last of them is given back.
    void whenGivenBack(std::function<void()> action) { whenGivenBack_ = std::move(action); }

    template <class Function>
    void fill(std::size_t number, Function* function, void* slot = nullptr) {
        memory_.at(kTableStart + number) = reinterpret_cast<void*>(function);
        slots_.at(number) = slot;
    }

    // What was given to `fill` beside the function; `self` is what the function was called with.
    static void* slotOf(void* const* self, std::size_t number) {
        return objectAt(self).slots_.at(number);
    }

private:
    static constexpr std::size_t kTableStart = 2;

    static HandMadeObject& objectAt(void* const* self) {
        return *static_cast<HandMadeObject*>(self[1]);
    }

    template <std::size_t... numbers>
    void fillWithWrongSlots(std::index_sequence<numbers...> /*all*/) {
        (fill(numbers, &wrongSlot<numbers>), ...);
    }

    template <std::size_t number>
    static void* wrongSlot(void* const* /*self*/) {
        ADD_FAILURE() << "slot " << number << " was called";
        return nullptr;
    }

    static std::uint32_t queryInterface(void* const* self, const void* id, void** object) {
        for (const auto& [bytes, face] : objectAt(self).faces_) {
            if (std::memcmp(bytes.data(), id, bytes.size()) == 0) {
                ++face->references_;
                *object = face->address();
                return 0;
            }
        }
        *object = nullptr;
        return 0x80004002;
    }

    static std::uint32_t addRef(void* const* self) {
        return static_cast<std::uint32_t>(++objectAt(self).references_);
    }

    static std::uint32_t release(void* const* self) {
        auto& object = objectAt(self);
        --object.references_;
        if (object.references_ == 0 && object.whenGivenBack_) {
            object.whenGivenBack_();
        }
        return static_cast<std::uint32_t>(object.references_);
    }

    std::vector<void*> memory_; // the table's address, this object, the table itself
    std::vector<void*> slots_;
    std::vector<std::pair<IdBytes, HandMadeObject*>> faces_;
    int references_ = 0;
    std::function<void()> whenGivenBack_;
};

template <std::size_t number, class Signature>
class Slot;

// Fills a slot of a hand-made object with a function that notes its arguments and then gives the
// answer. Must outlive the calls.
template <std::size_t number, class Result, class... Arguments>
class Slot<number, Result(Arguments...)> {
public:
    using Call = std::tuple<Arguments...>;

    Slot(HandMadeObject& object, std::function<Result(Arguments...)> answer)
        : answer_(std::move(answer)) {
        object.fill(number, &call, this);
    }
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;

    const std::vector<Call>& calls() const { return calls_; }

    // The arguments of the one call. Throws when there was none or more than one.
    const Call& onlyCall() const {
        if (calls_.size() != 1) {
            throw std::runtime_error("expected one call of slot " + std::to_string(number) +
                                     ", found " + std::to_string(calls_.size()));
        }
        return calls_.front();
    }

private:
    static Result call(void* const* self, Arguments... arguments) {
        auto& slot = *static_cast<Slot*>(HandMadeObject::slotOf(self, number));
        slot.calls_.emplace_back(arguments...);
        return slot.answer_(arguments...);
    }

    std::function<Result(Arguments...)> answer_;
    std::vector<Call> calls_;
};

template <class Signature>
struct SlotCaller;

template <class Result, class... Arguments>
struct SlotCaller<Result(Arguments...)> {
    static Result call(void* object, std::size_t number, Arguments... arguments) {
        void* const* const table = *static_cast<void* const* const*>(object);
        const auto function = reinterpret_cast<Result (*)(void*, Arguments...)>(table[number]);
        return function(object, arguments...);
    }
};

// Calls a slot of any object by its number alone: callSlot<int(void*)>(object, 3, argument).
template <class Signature, class... Arguments>
auto callSlot(void* object, std::size_t number, Arguments... arguments) {
    return SlotCaller<Signature>::call(object, number, arguments...);
}

// The face of any object that answers to the ID, without a reference. Throws when there is none.
inline void* faceOf(void* object, const IdBytes& id) {
    void* face = nullptr;
    if (callSlot<std::uint32_t(const void*, void**)>(object, 0, id.data(), &face) != 0) {
        throw std::runtime_error("expected a face for the ID, found none");
    }
    callSlot<std::uint32_t()>(face, 2);
    return face;
}

} // namespace wybeta::tests
