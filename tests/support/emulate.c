// Runs PROGRAM, which is of another system, under EMULATOR, with the name it was called by. A
// shell script would know no more of that name than where it lies.
#include <stdio.h>
#include <stdlib.h>
#include <unistd.h>

int main(int argc, char** argv) {
  char** const arguments = calloc((size_t)argc + 4, sizeof *arguments);
  if (arguments == NULL) return 2;
  arguments[0] = EMULATOR;
  arguments[1] = "-0";
  arguments[2] = argv[0];
  arguments[3] = PROGRAM;
  for (int i = 1; i < argc; ++i) arguments[i + 3] = argv[i];
  execvp(EMULATOR, arguments);
  perror(EMULATOR);
  return 2;
}
