#include "batch/command_line.h"

int main(int argc, char** argv) { return quorval::RunCommandLine(argc, argv); }
