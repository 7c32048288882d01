// SPDX-License-Identifier: GPL-3.0-or-later
#include "wysim/terminal/Console.h"

#include <cstdio>
#include <iostream>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cstddef>
#include <string_view>
#else
#include <unistd.h>
#endif

namespace wybeta::wysim::terminal {

#ifdef _WIN32

namespace {

std::string toUtf8(std::wstring_view text) {
    // Text from outside may hold half of a surrogate pair, which becomes U+FFFD.
    const auto size = static_cast<int>(text.size());
    const int needed =
        WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string utf8(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), needed, nullptr, nullptr);
    return utf8;
}

// _isatty takes the null device for one as well.
bool isConsole(DWORD stream) {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(stream), &mode) != 0;
}

} // namespace

void useUtf8Terminal() {
    SetConsoleCP(CP_UTF8);
    SetConsoleOutputCP(CP_UTF8);
    // Bytes have to reach the console as they are, and all bytes of a character at once.
    for (auto* const stream : {stdin, stdout, stderr}) {
        _setmode(_fileno(stream), _O_BINARY);
    }
    for (auto* const stream : {stdout, stderr}) {
        setvbuf(stream, nullptr, _IOFBF, 1 << 16);
    }
}

std::vector<std::string> utf8Arguments(int /*argc*/, char** /*argv*/) {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i) {
        arguments.push_back(toUtf8(wide[i]));
    }
    LocalFree(wide);
    return arguments;
}

bool isInputTerminal() {
    return isConsole(STD_INPUT_HANDLE);
}

bool isErrorTerminal() {
    return isConsole(STD_ERROR_HANDLE);
}

bool ownsTerminal() {
    DWORD process = 0;
    return isInputTerminal() && GetConsoleProcessList(&process, 1) == 1;
}

// The console gives other characters than ASCII only to those who read it as UTF-16.
bool readTerminalLine(std::string& line) {
    std::wstring text;
    wchar_t piece[256];
    DWORD size = 0;
    while (text.empty() || text.back() != L'\n') {
        if (!ReadConsoleW(GetStdHandle(STD_INPUT_HANDLE), piece, 256, &size, nullptr) ||
            size == 0) {
            return false;
        }
        text.append(piece, size);
    }
    constexpr wchar_t kEndOfInput = 0x1A;
    line = toUtf8(text.substr(0, text.find_last_not_of(L"\r\n") + 1));
    return text.front() != kEndOfInput;
}

#else

void useUtf8Terminal() {}

std::vector<std::string> utf8Arguments(int argc, char** argv) {
    return {argv + 1, argv + argc};
}

bool isInputTerminal() {
    return isatty(STDIN_FILENO) != 0;
}

bool isErrorTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

bool ownsTerminal() {
    return false;
}

bool readTerminalLine(std::string& line) {
    return static_cast<bool>(std::getline(std::cin, line));
}

#endif

} // namespace wybeta::wysim::terminal
