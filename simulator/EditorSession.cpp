// SPDX-License-Identifier: GPL-3.0-or-later
#include "simulator/EditorSession.h"

#include <stdexcept>

namespace wybeta::simulator {

void EditorSession::end() {
    editor_.reset();
    if (!state_->ledger.isBalanced()) {
        throw std::runtime_error("expected the module to give back all that it took, found:\n" +
                                 state_->ledger.report());
    }
}

} // namespace wybeta::simulator
