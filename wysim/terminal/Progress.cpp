// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/terminal/Progress.h"

#include <utility>

namespace wybeta::wysim::terminal {

Progress::Progress(std::ostream& terminal, Clock clock)
    : terminal_(&terminal), clock_(std::move(clock)) {}

Progress::~Progress() {
    finish();
}

void Progress::start(std::string work, std::size_t steps) {
    finish();
    work_ = std::move(work);
    steps_ = steps;
    done_ = 0;
    if (terminal_ != nullptr) {
        nextShow_ = clock_() + std::chrono::seconds(1);
    }
}

void Progress::step() {
    ++done_;
    if (terminal_ == nullptr) {
        return;
    }
    const auto now = clock_();
    if (now < nextShow_) {
        return;
    }
    const std::size_t percent = steps_ == 0 ? 100 : 100 * done_ / steps_;
    *terminal_ << "\r" << work_ << " " << percent << " %" << std::flush;
    isShown_ = true;
    nextShow_ = now + std::chrono::milliseconds(100);
}

void Progress::finish() {
    if (isShown_) {
        *terminal_ << "\r" << std::string(work_.size() + 6, ' ') << "\r" << std::flush;
        isShown_ = false;
    }
}

} // namespace wybeta::wysim::terminal
