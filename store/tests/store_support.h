// store_support.h - scratch directories, record files built from the file
// format, and child processes for the record store's tests.
#ifndef BBCONF_STORE_SUPPORT_H
#define BBCONF_STORE_SUPPORT_H

#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "bbconf_store.h"

namespace storetest {

constexpr size_t kTerminal = 3386, kTaxi = 1037;

// A record file: the record's bytes, then their CRC-CCITT (polynomial 0x1021,
// MSB first, initial value 0xABCD, computed bit by bit here) little-endian.
inline std::string sealed(const std::string& rec) {
    unsigned crc = 0xABCD;
    for (unsigned char b : rec) {
        crc ^= static_cast<unsigned>(b) << 8;
        for (int i = 0; i < 8; i++) crc = (crc & 0x8000) ? ((crc << 1) ^ 0x1021) & 0xffff : (crc << 1) & 0xffff;
    }
    return rec + static_cast<char>(crc & 0xff) + static_cast<char>(crc >> 8);
}

// A record of `size` bytes that differs from zero and from its neighbours.
inline std::string pattern(size_t size, unsigned seed) {
    std::string s(size, '\0');
    for (size_t i = 0; i < size; i++) s[i] = static_cast<char>((i * 7 + seed) & 0xff);
    return s;
}

inline std::string slurp(const std::string& path) {
    std::ifstream f(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
}

inline void spit(const std::string& path, const std::string& data) { std::ofstream(path, std::ios::binary) << data; }

class ScratchDir : public ::testing::Test {
  protected:
    void SetUp() override {
        char tmpl[] = "/tmp/bbconf_store_XXXXXX";
        ASSERT_NE(mkdtemp(tmpl), nullptr);
        dir_ = tmpl;
        ::chmod(dir_.c_str(), 0755);  // other users of the ownership tests look in
    }
    void TearDown() override { std::filesystem::remove_all(dir_); }

    std::string path(const std::string& name) const { return dir_ + "/" + name; }

    // Names in the scratch directory, sorted.
    std::vector<std::string> names() const {
        std::vector<std::string> out;
        for (const auto& e : std::filesystem::directory_iterator(dir_)) out.push_back(e.path().filename());
        std::sort(out.begin(), out.end());
        return out;
    }

    std::string message(const bbconf::StoreResult& res, const std::string& file) const {
        char buf[512];
        bbconf::store_message(res, file.c_str(), buf, sizeof buf);
        std::string s = buf;
        for (size_t p; (p = s.find(dir_)) != std::string::npos;) s.replace(p, dir_.size(), "D");
        return s;
    }

    std::string dir_;
};

inline int finish(pid_t pid) {
    int st = 0;
    ::waitpid(pid, &st, 0);
    return WIFEXITED(st) ? WEXITSTATUS(st) : -WTERMSIG(st);
}

// Runs fn in a child process and returns its exit status (-signal when killed).
template <class Fn>
int in_child(Fn fn) {
    const pid_t pid = ::fork();
    if (pid == 0) ::_exit(fn());
    return finish(pid);
}

// Starts a program with its standard output and error sent to files.
inline pid_t spawn(const std::vector<std::string>& argv, const std::string& out = "/dev/null",
                   const std::string& err = "/dev/null") {
    const pid_t pid = ::fork();
    if (pid == 0) {
        const int o = ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int e = ::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (o < 0 || e < 0 || ::dup2(o, 1) < 0 || ::dup2(e, 2) < 0) ::_exit(126);
        std::vector<char*> args;
        for (const std::string& a : argv) args.push_back(const_cast<char*>(a.c_str()));
        args.push_back(nullptr);
        ::execv(args[0], args.data());
        ::_exit(127);
    }
    return pid;
}

}  // namespace storetest

#endif
