// quiet_stdout.h - sends the process's standard output to /dev/null while
// an object lives: the library reports on standard output, and the tests
// and benchmarks that call it many times do not want the lines.
#ifndef BBCONF_TESTS_QUIET_STDOUT_H
#define BBCONF_TESTS_QUIET_STDOUT_H

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

namespace bbtest {

class QuietStdout {
  public:
    QuietStdout() {
        std::fflush(stdout);
        saved_ = dup(STDOUT_FILENO);
        int null_fd = open("/dev/null", O_WRONLY);
        if (null_fd >= 0) {
            dup2(null_fd, STDOUT_FILENO);
            close(null_fd);
        }
    }
    ~QuietStdout() {
        std::fflush(stdout);
        if (saved_ >= 0) {
            dup2(saved_, STDOUT_FILENO);
            close(saved_);
        }
    }
    QuietStdout(const QuietStdout&) = delete;
    QuietStdout& operator=(const QuietStdout&) = delete;

  private:
    int saved_ = -1;
};

}  // namespace bbtest

#endif
