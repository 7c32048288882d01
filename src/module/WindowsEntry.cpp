// SPDX-License-Identifier: GPL-3.0-or-later
//
// What Windows tells the module when it is loaded: its handle, from which its folder follows.
// Nothing reads them now; code that needs either can't learn it later.
#include <windows.h>

#include <cwchar>

// The SDK's own name for the handle.
void* moduleHandle = nullptr;

namespace {

HINSTANCE instanceHandle = nullptr;
wchar_t moduleFolder[MAX_PATH] = {};

// Leaves the folder as it is when Windows can't tell or tells a name without a folder.
void recordModuleFolder(HINSTANCE instance) {
    wchar_t fileName[MAX_PATH] = {};
    const bool isWhole = GetModuleFileNameW(instance, fileName, MAX_PATH) < MAX_PATH;
    wchar_t* const lastBackslash = isWhole ? std::wcsrchr(fileName, L'\\') : nullptr;
    if (lastBackslash != nullptr) {
        lastBackslash[1] = L'\0';
        std::wmemcpy(moduleFolder, fileName, MAX_PATH);
    }
}

} // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID /*reserved*/) {
    if (reason == DLL_PROCESS_ATTACH) {
        moduleHandle = instance;
        instanceHandle = instance;
        recordModuleFolder(instance);
    }
    return TRUE;
}
