// SPDX-License-Identifier: GPL-3.0-or-later
//
// Calls an operation of an interface on a hand-made object and expects the call to arrive in the
// slot with the number, its arguments and its answer whole. The signature is that of the slot, in
// plain types.
#pragma once

#include "tests/HandMadeObject.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <tuple>

namespace wybeta::tests {

template <std::size_t number, class Signature, class Interface, class Result, class... Parameters,
          class Answer, class... Arguments>
void expectAnswer(Result (Interface::*operation)(Parameters...), Answer answer,
                  Arguments... arguments) {
    HandMadeObject object;
    Slot<number, Signature> slot(object, [answer](auto...) { return answer; });
    EXPECT_EQ((object.as<Interface>()->*operation)(arguments...), answer);
    EXPECT_EQ(slot.onlyCall(), std::tuple(arguments...));
}

template <std::size_t number, class Signature, class Interface, class... Parameters,
          class... Arguments>
void expectCall(void (Interface::*operation)(Parameters...), Arguments... arguments) {
    HandMadeObject object;
    Slot<number, Signature> slot(object, [](auto...) {});
    (object.as<Interface>()->*operation)(arguments...);
    EXPECT_EQ(slot.onlyCall(), std::tuple(arguments...));
}

} // namespace wybeta::tests
