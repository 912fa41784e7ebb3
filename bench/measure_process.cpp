// measure_process REPETITIONS COMMAND [ARGUMENT ...]
// Prints the least seconds by the clock and the most bytes that the command held, its output thrown away. It
// is small itself: a process inherits the peak of the one that started it.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

extern char** environ;

int main(int count, char** words) {
    if (count < 3) {
        return 2;
    }
    double least = 1e9;
    long most = 0;
    posix_spawn_file_actions_t quietly;
    posix_spawn_file_actions_init(&quietly);
    posix_spawn_file_actions_addopen(&quietly, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&quietly, 2, "/dev/null", O_WRONLY, 0);
    for (int repetition = std::atoi(words[1]); repetition > 0; --repetition) {
        const auto begin = std::chrono::steady_clock::now();
        pid_t process = 0;
        int status = 0;
        rusage usage{};
        if (posix_spawnp(&process, words[2], &quietly, nullptr, words + 2, environ) != 0 ||
            wait4(process, &status, 0, &usage) < 0 || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
            return 1;
        }
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        least = std::min(least, taken.count());
        most = std::max(most, usage.ru_maxrss);
    }
    std::printf("%.9g %ld\n", least, most * 1024);
    return 0;
}
