// SPDX-License-Identifier: GPL-3.0-or-later
//
// The input is what a user does, each byte one choice. The editor has to agree with the naive model
// throughout, and to get everything back at the end.
#include "fuzz/Check.h"
#include "fuzz/ModuleExtension.h"
#include "tests/model/RandomLyrics.h"
#include "tests/model/RandomSession.h"

#include <cstddef>
#include <cstdint>

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace wybeta;
    const auto choices = fuzz::textOf(data, size);
    const auto difference =
        tests::RandomSession(fuzz::moduleExtension(), tests::Random(choices)).run();
    if (!difference.empty()) {
        fuzz::fail(difference);
    }
    return 0;
}
