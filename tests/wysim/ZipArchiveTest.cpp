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

// What is wrong with the container file of an archive.
std::string refusalOf(const std::string& bytes, std::size_t limit = 1000) {
    try {
        unpackContainer(bytes, limit);
        return {};
    } catch (const BadInput& error) {
        return error.what();
    }
}

constexpr auto kDamaged = "expected 'META-INF/container.xml' undamaged in the zip file, found "
                          "other contents than its header states";
constexpr auto kNoArchive = "expected a zip file, found none, or one that is damaged";

TEST_F(ZipArchiveTest, RefusesMoreThanTheLimit) {
    EXPECT_EQ(refusalOf(bytes, 119), "");
    EXPECT_EQ(refusalOf(bytes, 118),
              "expected at most 118 bytes in 'META-INF/container.xml', found 119");
}

TEST_F(ZipArchiveTest, RefusesAFileThatItDoesNotHold) {
    try {
        ZipArchive(bytes).unpack("song.xml", 1000);
        ADD_FAILURE();
    } catch (const BadInput& error) {
        EXPECT_STREQ(error.what(), "expected 'song.xml' in the zip file, found no such file");
    }
}

TEST_F(ZipArchiveTest, RefusesASizeThatIsNotTrue) {
    constexpr std::size_t kSize = 24;
    constexpr std::size_t kPackedSize = 20;
    const auto entry = directoryOf(bytes);
    for (const char size : {'\0', '\1', '\x7F'}) {
        EXPECT_EQ(refusalOf(withBytes(bytes, entry + kSize, {size})), kDamaged);
        EXPECT_EQ(refusalOf(withBytes(bytes, entry + kPackedSize, {size})), kDamaged);
    }
    EXPECT_EQ(refusalOf(withBytes(bytes, entry + kSize, "\xFE\xFF\xFF\xFF")),
              "expected at most 1000 bytes in 'META-INF/container.xml', found 4294967294");
    EXPECT_EQ(refusalOf(withBytes(bytes, entry + kPackedSize, "\xFE\xFF\xFF\xFF")), kDamaged);
}

TEST_F(ZipArchiveTest, RefusesAnOffsetOutsideTheFile) {
    constexpr std::size_t kOffset = 42;
    for (const auto* const offset : {"\xFF\xFF\xFF\x7F", "\xFE\xFF\xFF\xFF"}) {
        EXPECT_EQ(refusalOf(withBytes(bytes, directoryOf(bytes) + kOffset, offset)), kDamaged);
        EXPECT_EQ(refusalOf(withBytes(bytes, bytes.size() - 6, offset)), kNoArchive);
    }
}

TEST_F(ZipArchiveTest, RefusesWhatIsNoArchive) {
    for (const auto& other : {std::string(), std::string("PK"), bytes.substr(0, 200)}) {
        EXPECT_EQ(refusalOf(other), kNoArchive);
    }
}

TEST_F(ZipArchiveTest, RefusesDamagedContents) {
    constexpr std::size_t kChecksum = 16;
    const auto entry = directoryOf(bytes);
    const std::string other = {static_cast<char>(bytes[entry + kChecksum] + 1)};
    EXPECT_EQ(refusalOf(withBytes(bytes, entry + kChecksum, other)), kDamaged);
}

TEST_F(ZipArchiveTest, RefusesContentsThatEndTooEarly) {
    constexpr std::size_t kPackedSize = 20;
    constexpr std::size_t kPackedSizeInHeader = 18;
    const auto entry = directoryOf(bytes);
    const std::string less = {static_cast<char>(bytes[entry + kPackedSize] - 9)};
    const auto other = withBytes(bytes, entry + kPackedSize, less);
    EXPECT_EQ(refusalOf(withBytes(other, kPackedSizeInHeader, less)), kDamaged);
}

TEST_F(ZipArchiveTest, RefusesEncryptedAndOtherwisePackedFiles) {
    const std::string expected = "expected 'META-INF/container.xml' stored or deflated in the zip "
                                 "file, found it encrypted or packed otherwise";
    const auto entry = directoryOf(bytes);
    EXPECT_EQ(refusalOf(withBytes(bytes, entry + 8, "\1")), expected);
    EXPECT_EQ(refusalOf(withBytes(bytes, entry + 10, "\14")), expected);
}

} // namespace

} // namespace wybeta::tests
