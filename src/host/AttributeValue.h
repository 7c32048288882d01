// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pluginterfaces/base/fvariant.h"

namespace wybeta::host {

// The value of a note's attribute, read from the host or handed to it. Never frees a string, even
// if the host marks it as its receiver's own: the host allocated it on another heap.
class AttributeValue : public Steinberg::FVariant {
public:
    AttributeValue() = default;
    AttributeValue(const AttributeValue&) = delete;
    AttributeValue& operator=(const AttributeValue&) = delete;

    ~AttributeValue() {
        if (isString()) {
            setOwner(false);
        }
    }
};

} // namespace wybeta::host
