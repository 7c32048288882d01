// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reads what Windows shows of the module's file under Properties, Details, as Windows reads it.
#ifdef _WIN32

#include "tests/Options.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace wybeta {
namespace {

class VersionResource : public testing::Test {
protected:
    // A text of the block for English (United States) in UTF-16. Throws when there is none.
    std::wstring text(const std::wstring& name) {
        const auto [characters, length] = find<wchar_t>(L"\\StringFileInfo\\040904B0\\" + name);
        return {characters, length - 1};
    }

    // A value in the resource and its length: in characters for a text, else in bytes.
    template <class Value>
    std::pair<const Value*, UINT> find(const std::wstring& path) {
        void* value = nullptr;
        UINT length = 0;
        if (VerQueryValueW(resource.data(), path.c_str(), &value, &length) == 0 || length == 0) {
            throw std::runtime_error("expected a value in the version resource, found none");
        }
        return {static_cast<const Value*>(value), length};
    }

private:
    static std::vector<std::byte> read(const std::wstring& file) {
        std::vector<std::byte> bytes(GetFileVersionInfoSizeW(file.c_str(), nullptr));
        if (GetFileVersionInfoW(file.c_str(), 0, static_cast<DWORD>(bytes.size()), bytes.data()) ==
            0) {
            throw std::runtime_error("expected a version resource in the module, found none");
        }
        return bytes;
    }

    const std::vector<std::byte> resource = read(tests::modulePath().wstring());
};

TEST_F(VersionResource, NumbersTheFileAndTheProduct) {
    const auto& numbers = *find<VS_FIXEDFILEINFO>(L"\\").first;
    EXPECT_EQ(numbers.dwSignature, 0xFEEF04BDu);
    EXPECT_EQ(numbers.dwFileVersionMS, 0x00030000u);
    EXPECT_EQ(numbers.dwFileVersionLS, 0x00030000u);
    EXPECT_EQ(numbers.dwProductVersionMS, 0x00030000u);
    EXPECT_EQ(numbers.dwProductVersionLS, 0x00030000u);
    EXPECT_EQ(numbers.dwFileType, static_cast<DWORD>(VFT_DLL));
}

TEST_F(VersionResource, SaysWhatTheFileIs) {
    EXPECT_EQ(text(L"ProductName"), L"WY Beta");
    EXPECT_EQ(text(L"ProductVersion"), L"3.0.3");
    EXPECT_EQ(text(L"FileDescription"), L"Divides lyrics into sung syllables");
    EXPECT_EQ(text(L"FileVersion"), L"3.0.3");
    EXPECT_EQ(text(L"OriginalFilename"), L"WyBeta.vst3");
}

TEST_F(VersionResource, SaysWhoseWorkItIs) {
    EXPECT_EQ(text(L"CompanyName"), L"WY Beta");
    EXPECT_EQ(text(L"LegalCopyright"),
              L"Copyright (C) 2026 the WY Beta authors. GNU GPL, version 3 or later.");
}

TEST_F(VersionResource, NamesTheOneBlockThatItsTextsAreIn) {
    const auto [translation, length] = find<WORD>(L"\\VarFileInfo\\Translation");
    ASSERT_EQ(length, 2 * sizeof(WORD));
    EXPECT_EQ(translation[0], 0x0409);
    EXPECT_EQ(translation[1], 1200);
}

} // namespace
} // namespace wybeta

#endif
