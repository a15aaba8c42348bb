#include "cli/run.h"

int main(int argc, char* argv[]) { return quillmark::RunProgram(argc, argv); }
