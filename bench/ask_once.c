/* The least that asking a server can cost: starts it, sends the same requests one by one, reads
 * each answer, closes the input and waits for the end. The arguments are a file of requests, one
 * per line, with "-" before those that no answer comes to, and the server's command. */
#define _GNU_SOURCE
#include <fcntl.h>
#include <spawn.h>
#include <stdio.h>
#include <string.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

static int answered(int from) {
  static char room[1 << 16];
  ssize_t count;
  do {
    count = read(from, room, sizeof room);
  } while (count > 0 && room[count - 1] != '\n');
  return count > 0;
}

int main(int argc, char** argv) {
  int in[2], out[2], status;
  pid_t id;
  posix_spawn_file_actions_t actions;
  if (argc < 3 || pipe2(in, O_CLOEXEC) != 0 || pipe2(out, O_CLOEXEC) != 0) return 2;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in[0], 0);
  posix_spawn_file_actions_adddup2(&actions, out[1], 1);
  if (posix_spawnp(&id, argv[2], &actions, NULL, argv + 2, environ) != 0) return 2;
  close(in[0]);
  close(out[1]);
  char line[4096];
  FILE* const requests = fopen(argv[1], "r");
  if (requests == NULL) return 2;
  while (fgets(line, sizeof line, requests) != NULL) {
    const int is_told = line[0] == '-';
    const size_t size = strlen(line + is_told);
    if (write(in[1], line + is_told, size) != (ssize_t)size) return 2;
    if (!is_told && !answered(out[0])) return 2;
  }
  close(in[1]);
  return waitpid(id, &status, 0) == id ? status : 2;
}
