// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "simulator/ExtensionInstance.h"

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wybeta::tests {

// A note as the project or the track table has it.
struct SeenNote {
    const void* event;
    double start;
    double length;
    std::int32_t value;
    std::string lyric;
    std::string phoneme;
};

// The notes of tracks, under the addresses of the tracks.
using SeenTracks = std::map<const void*, std::vector<SeenNote>>;

// The extension that faults are tried on.
class Subject {
public:
    Subject() = default;
    virtual ~Subject() = default;
    Subject(const Subject&) = delete;
    Subject& operator=(const Subject&) = delete;

    virtual const simulator::ExtensionInstance& extension() const = 0;
    // Whether the track table can be looked at.
    virtual bool showsTable() const = 0;
    // The table of the current extension. Nothing while there is none, or it cannot be looked at.
    virtual std::optional<SeenTracks> table() const = 0;
};

// Each test program has one of its own: unit_tests the extension that is linked in, with its table
// in sight; module_tests that of the built module.
std::unique_ptr<Subject> makeSubject();

} // namespace wybeta::tests
