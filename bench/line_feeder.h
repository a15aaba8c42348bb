#pragma once

#include <cstddef>
#include <string>

namespace quillmark::bench {

// A radio that streams known lines without a break, as fast as a line at 115200 baud carries them.
// It serves them from a process of its own (this program with --feed), so that its processor time
// is not the console's.

constexpr std::size_t streamRate = 11'520;    // bytes a second
constexpr int longestStream = 90;             // s
constexpr const char* streamWord = "stream";  // the command that starts the stream

// What it streams: numbered lines of printable characters, each 80 bytes with its CR LF.
std::string KnownLines(int seconds);

// Serves until it is ended; prints "radio on DEVICE" first. Gives the program's exit code.
int Feed(int seconds);

}  // namespace quillmark::bench
