// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <ostream>
#include <string>

namespace wybeta::wysim::terminal {

// Tells a person at a terminal how far a long piece of work has come. Quiet during the first
// second, and quiet throughout without a terminal.
class Progress {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    // Without a terminal: shows nothing.
    Progress() = default;
    // The terminal has to outlive this.
    explicit Progress(std::ostream& terminal, Clock clock = std::chrono::steady_clock::now);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // Begins a piece of work, such as "reading", of so many steps.
    void start(std::string work, std::size_t steps);
    // One step is done.
    void step();
    // Takes the line off the terminal.
    void finish();

private:
    std::ostream* terminal_ = nullptr;
    Clock clock_;
    std::string work_;
    std::size_t steps_ = 0;
    std::size_t done_ = 0;
    std::chrono::steady_clock::time_point nextShow_;
    bool isShown_ = false;
};

} // namespace wybeta::wysim::terminal
