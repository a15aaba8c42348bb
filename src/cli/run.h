#pragma once

namespace quillmark {

// The whole program: reads the command line, does what it says, and gives the exit code.
int RunProgram(int argc, char** argv);

}  // namespace quillmark
