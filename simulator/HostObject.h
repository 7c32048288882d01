// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/CallInterceptor.h"
#include "simulator/Ledger.h"

#include "pluginterfaces/base/funknown.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

namespace wybeta::simulator {

// What all objects of one simulated host share.
struct HostState {
    Ledger ledger;
    CallInterceptor calls;
};

using SharedState = std::shared_ptr<HostState>;

// An object of the simulated host. It lives as long as the simulator keeps a Handle to it or the
// module holds a reference, which are counted apart.
class HostObject {
public:
    HostObject(SharedState state, const char* className);
    virtual ~HostObject();
    HostObject(const HostObject&) = delete;
    HostObject& operator=(const HostObject&) = delete;

    const char* className() const { return className_; }
    std::int64_t moduleReferences() const { return moduleReferences_; }
    const SharedState& state() const { return state_; }

    // Whether one Handle is all that keeps the object alive.
    bool isHeldOnce() const { return handles_ == 1 && moduleReferences_ == 0; }

    void retain() { ++handles_; }
    void drop();

protected:
    // The interface that answers to the ID, without a new reference; null when there is none.
    virtual void* interfaceFor(const Steinberg::TUID id) = 0;

    Steinberg::uint32 addModuleReference();
    Steinberg::uint32 releaseModuleReference();

    // Announces a call by the module, such as "IProjectNode.children", and returns how to answer
    // it.
    Answer enter(std::string_view call) { return state_->calls.enter({call, *this}); }

private:
    void destroyWhenUnused();

    SharedState state_;
    const char* className_;
    std::int64_t handles_ = 0;
    std::int64_t moduleReferences_ = 0;
};

// The simulator's own hold on one of its objects.
template <class T>
class Handle {
public:
    Handle() = default;
    explicit Handle(T* object) : object_(object) {
        if (object_ != nullptr) {
            object_->retain();
        }
    }
    Handle(const Handle& other) : Handle(other.object_) {}
    template <class U>
    Handle(const Handle<U>& other) : Handle(other.get()) {}
    Handle(Handle&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Handle& operator=(Handle other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Handle() {
        if (object_ != nullptr) {
            object_->drop();
        }
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }

private:
    T* object_ = nullptr;
};

template <class T, class... Arguments>
Handle<T> makeHandle(Arguments&&... arguments) {
    return Handle<T>(std::make_unique<T>(std::forward<Arguments>(arguments)...).release());
}

// Joins a host object with the interfaces that it implements; the first is its own interface.
template <class Base, class... Interfaces>
class Implements : public Base, public Interfaces... {
public:
    using Base::Base;

    Steinberg::tresult PLUGIN_API queryInterface(const Steinberg::TUID id, void** object) override {
        const bool isRefused = this->enter("queryInterface") == Answer::Refuse;
        *object = isRefused ? nullptr : this->interfaceFor(id);
        if (*object == nullptr) {
            return Steinberg::kNoInterface;
        }
        this->addModuleReference();
        return Steinberg::kResultOk;
    }

    Steinberg::uint32 PLUGIN_API addRef() override { return this->addModuleReference(); }
    Steinberg::uint32 PLUGIN_API release() override { return this->releaseModuleReference(); }
};

// Hands an object over with a reference that the module has to give back; null stays null.
template <class Interface, class Object>
Interface* handOver(Object* object) {
    if (object != nullptr) {
        object->addRef();
    }
    return object;
}

} // namespace wybeta::simulator
