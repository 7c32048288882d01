// SPDX-License-Identifier: GPL-3.0-or-later
#include "module/FactoryInfo.h"

#include "module/Identity.h"

namespace wybeta::module {

namespace {

constexpr Steinberg::TUID kClassId = INLINE_UID(0x849FAA1D, 0x75924EDC, 0x8C14DEB3, 0xBE046974);

// The host is told that one extension is enough, where a plug-in would offer many instances.
constexpr Steinberg::int32 kOneInstance = 1;

} // namespace

const Steinberg::PFactoryInfo& factoryInfo() {
    static const Steinberg::PFactoryInfo info(WYBETA_VENDOR,
                                              "https://example.org/wy-beta-lyric-division", "",
                                              Steinberg::PFactoryInfo::kUnicode);
    return info;
}

const Steinberg::PClassInfo2& classRecord() {
    static const Steinberg::PClassInfo2 record(kClassId, kOneInstance, "Service", WYBETA_NAME, 0,
                                               "", "", WYBETA_VERSION, "4.1");
    return record;
}

} // namespace wybeta::module
