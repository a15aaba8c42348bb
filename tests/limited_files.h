#pragma once

#include <sys/resource.h>

#include <csignal>

namespace quillmark {

// While it lives no file can grow beyond so many bytes: a disk that is full.
class LimitedFiles {
 public:
  explicit LimitedFiles(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit limit{bytes, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~LimitedFiles() { setrlimit(RLIMIT_FSIZE, &before); }
  LimitedFiles(const LimitedFiles&) = delete;
  LimitedFiles& operator=(const LimitedFiles&) = delete;

 private:
  rlimit before{};
};

}  // namespace quillmark
