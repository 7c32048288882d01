// SPDX-License-Identifier: GPL-3.0-or-later
//
// The page's way to its SongPage, and through that to the module, which it knows by its exports.
#include "module/ModuleEntry.h"
#include "simulator/ModuleExports.h"
#include "wysim/page/SongPage.h"

#include <emscripten/bind.h>

namespace wybeta::web {

namespace {

using wysim::page::SongPage;

class LinkedPage : public SongPage {
public:
    LinkedPage() : SongPage({GetPluginFactory, InitDll, ExitDll}) {}
};

EMSCRIPTEN_BINDINGS(wy_beta) {
    emscripten::class_<SongPage>("AnyPage")
        .function("openExample", &SongPage::openExample)
        .function("open", &SongPage::open)
        .function("song", &SongPage::song)
        .function("type", &SongPage::type)
        .function("add", &SongPage::add)
        .function("move", &SongPage::move)
        .function("remove", &SongPage::remove)
        .function("undo", &SongPage::undo)
        .function("redo", &SongPage::redo)
        .function("check", &SongPage::check)
        .function("fit", &SongPage::fit)
        .function("lines", &SongPage::lines)
        .function("lay", &SongPage::lay)
        .function("save", &SongPage::save);
    emscripten::class_<LinkedPage, emscripten::base<SongPage>>("SongPage").constructor<>();
}

} // namespace

} // namespace wybeta::web
