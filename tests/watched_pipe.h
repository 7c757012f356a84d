// A pipe that nobody may open: a file that a text from outside names.  Who
// opens it all the same is let go at once, so a test fails and does not hang.

#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

class WatchedPipe {
 public:
  explicit WatchedPipe(std::string path) : path_(std::move(path)) {
    (void)mkfifo(path_.c_str(), 0600);
    watching_ = std::thread([this] { Watch(); });
  }
  ~WatchedPipe() {
    done_ = true;
    watching_.join();
    unlink(path_.c_str());
  }

  const std::string& Path() const { return path_; }
  bool WasOpened() const { return opened_; }

 private:
  // To write, a pipe opens only while somebody has it open to read.
  void Watch() {
    while (!done_) {
      const int pipe = open(path_.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
      if (pipe >= 0) {
        opened_ = true;
        close(pipe);
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  std::string path_;
  std::atomic<bool> opened_ = false, done_ = false;
  std::thread watching_;
};
