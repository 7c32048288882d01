// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/song/FileBytes.h"

#include "tests/wysim/SongFixture.h"
#include "wysim/song/BadInput.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>

#ifndef _WIN32
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>
#endif

namespace wybeta::tests {

namespace {

namespace fs = std::filesystem;
using wysim::song::BadInput;
using wysim::song::readFile;
using wysim::song::writeFile;

// What is wrong with writing to a file; empty when it was written.
std::string refusalToWrite(const fs::path& path) {
    try {
        writeFile(path, "new");
        return {};
    } catch (const BadInput& error) {
        return error.what();
    }
}

std::string refusalToRead(const fs::path& path) {
    try {
        readFile(path, 100);
        return {};
    } catch (const BadInput& error) {
        return error.what();
    }
}

// Each path of a folder, to see that nothing is left beside a file.
std::size_t countFiles(const fs::path& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

TEST(FileBytes, ReadsNoFolderAndNothingThatIsNotThere) {
    const TemporaryFolder folder;
    EXPECT_NE(refusalToRead(folder.file("missing")), "");
    EXPECT_NE(refusalToRead(folder.file("")), "");
    EXPECT_EQ(refusalToRead(folder.write("small", "love")), "");
}

TEST(FileBytes, WritesANewFileAndReplacesAnOldOne) {
    const TemporaryFolder folder;
    for (const auto& file : {folder.file("new.txt"), folder.write("old.txt", "old")}) {
        EXPECT_EQ(refusalToWrite(file), "");
        EXPECT_EQ(readFile(file, 3), "new");
    }
    EXPECT_EQ(countFiles(folder.file("")), 2U);
}

TEST(FileBytes, ReplacesNoFolder) {
    const TemporaryFolder folder;
    fs::create_directory(folder.file("x.svg"));
    EXPECT_EQ(refusalToWrite(folder.file("x.svg")),
              "expected an ordinary file to write, found a folder at " +
                  folder.file("x.svg").u8string());
    EXPECT_TRUE(fs::is_directory(folder.file("x.svg")));
}

TEST(FileBytes, ReplacesNoFileThatIsReadOnly) {
    const TemporaryFolder folder;
    const auto file = folder.write("x.svg", "old");
    constexpr auto kWrite =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(file, kWrite, fs::perm_options::remove);
    EXPECT_EQ(refusalToWrite(file),
              "expected a file that may be written, found one that is read-only at " +
                  file.u8string());
    EXPECT_EQ(bytesOf(file), "old");
    EXPECT_EQ(countFiles(folder.file("")), 1U);
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add);
    EXPECT_EQ(refusalToWrite(file), "");
}

TEST(FileBytes, SaysWhatCannotBeWritten) {
    const TemporaryFolder folder;
    const auto file = folder.file("missing") / "x.svg";
    EXPECT_EQ(refusalToWrite(file),
              "expected to write " + file.u8string() + ", found that it cannot be written");
}

#ifndef _WIN32
TEST(FileBytes, KeepsTheFileItReplacesFromOthers) {
    const TemporaryFolder folder;
    const auto file = folder.write("x.svg", "old");
    constexpr auto kOwner = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(file, kOwner);
    EXPECT_EQ(refusalToWrite(file), "");
    EXPECT_EQ(fs::status(file).permissions(), kOwner);
}

TEST(FileBytes, NeitherReadsNorReplacesADevice) {
    const TemporaryFolder folder;
    fs::create_symlink("/dev/full", folder.file("link.svg"));
    for (const auto& file : {fs::path("/dev/full"), folder.file("link.svg")}) {
        EXPECT_EQ(refusalToWrite(file),
                  "expected an ordinary file to write, found a device at " + file.u8string());
        EXPECT_EQ(refusalToRead(file), "expected a file, found a device");
    }
    EXPECT_TRUE(fs::is_symlink(folder.file("link.svg")));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_FALSE(fs::exists("/dev/full.part"));
}

TEST(FileBytes, NeitherReadsNorReplacesAPipe) {
    const TemporaryFolder folder;
    const auto pipe = folder.file("pipe.svg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    fs::create_symlink(pipe, folder.file("link.svg"));
    for (const auto& file : {pipe, folder.file("link.svg")}) {
        EXPECT_EQ(refusalToWrite(file),
                  "expected an ordinary file to write, found a pipe at " + file.u8string());
        EXPECT_EQ(refusalToRead(file), "expected a file, found a pipe");
    }
    EXPECT_TRUE(fs::is_fifo(pipe));
    EXPECT_EQ(countFiles(folder.file("")), 2U);
}

TEST(FileBytes, ReplacesNoSocket) {
    const TemporaryFolder folder;
    const auto path = folder.file("socket.svg");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.native().copy(std::begin(address.sun_path), sizeof address.sun_path - 1);
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    EXPECT_EQ(refusalToWrite(path),
              "expected an ordinary file to write, found a socket at " + path.u8string());
    EXPECT_TRUE(fs::is_socket(path));
    close(socket);
}
#endif

} // namespace

} // namespace wybeta::tests
