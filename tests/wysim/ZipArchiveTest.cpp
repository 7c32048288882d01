// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/ZipArchive.h"

#include "tests/wysim/SongFixture.h"
#include "wysim/song/BadInput.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace wybeta::tests {

namespace {

using wysim::song::BadInput;
using wysim::song::ZipArchive;

// Where the directory entry of the first file begins.
std::size_t directoryOf(const std::string& bytes) {
    return bytes.find("PK\1\2");
}

std::string withBytes(std::string bytes, std::size_t offset, const std::string& other) {
    return bytes.replace(offset, other.size(), other);
}

std::string unpackContainer(const std::string& bytes, std::size_t limit = 1000) {
    return ZipArchive(bytes).unpack("META-INF/container.xml", limit);
}

class ZipArchiveTest : public testing::Test {
protected:
    const std::string bytes = bytesOf(dataFile("compressed.mxl"));
};

TEST_F(ZipArchiveTest, UnpacksStoredAndDeflatedFiles) {
    const auto text = unpackContainer(bytes);
    EXPECT_NE(text.find("full-path=\"score.xml\""), std::string::npos);
    EXPECT_EQ(unpackContainer(bytesOf(dataFile("stored.mxl"))), text);
}

TEST_F(ZipArchiveTest, NamesItsFiles) {
    EXPECT_EQ(ZipArchive(bytes).names(),
              (std::vector<std::string>{"META-INF/container.xml", "score.xml"}));
}

TEST_F(ZipArchiveTest, RefusesMoreThanTheLimit) {
    EXPECT_THROW(unpackContainer(bytes, 10), BadInput);
}

TEST_F(ZipArchiveTest, RefusesASizeThatIsNotTrue) {
    constexpr std::size_t kSize = 24;
    constexpr std::size_t kPackedSize = 20;
    const auto entry = directoryOf(bytes);
    for (const char size : {'\0', '\1', '\x7F'}) {
        EXPECT_THROW(unpackContainer(withBytes(bytes, entry + kSize, {size})), BadInput);
        EXPECT_THROW(unpackContainer(withBytes(bytes, entry + kPackedSize, {size})), BadInput);
    }
    EXPECT_THROW(unpackContainer(withBytes(bytes, entry + kSize, "\xFF\xFF\xFF\xFF")), BadInput);
    EXPECT_THROW(unpackContainer(withBytes(bytes, entry + kPackedSize, "\xFF\xFF\xFF\xFF")),
                 BadInput);
}

TEST_F(ZipArchiveTest, RefusesAnOffsetOutsideTheFile) {
    constexpr std::size_t kOffset = 42;
    EXPECT_THROW(
        unpackContainer(withBytes(bytes, directoryOf(bytes) + kOffset, "\xFF\xFF\xFF\x7F")),
        BadInput);
    EXPECT_THROW(
        unpackContainer(withBytes(bytes, directoryOf(bytes) + kOffset, "\xFF\xFF\xFF\xFF")),
        BadInput);
    EXPECT_THROW(unpackContainer(withBytes(bytes, bytes.size() - 6, "\xFF\xFF\xFF\xFF")), BadInput);
}

TEST_F(ZipArchiveTest, RefusesDamagedContents) {
    constexpr std::size_t kChecksum = 16;
    const auto entry = directoryOf(bytes);
    const std::string other = {static_cast<char>(bytes[entry + kChecksum] + 1)};
    EXPECT_THROW(unpackContainer(withBytes(bytes, entry + kChecksum, other)), BadInput);
}

TEST_F(ZipArchiveTest, RefusesEncryptedAndOtherwisePackedFiles) {
    const auto entry = directoryOf(bytes);
    EXPECT_THROW(unpackContainer(withBytes(bytes, entry + 8, "\1")), BadInput);
    EXPECT_THROW(unpackContainer(withBytes(bytes, entry + 10, "\14")), BadInput);
}

} // namespace

} // namespace wybeta::tests
