#pragma once

#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kebu::tests {

/// The path of a database file that ends with the object, and with it what SQLite keeps beside it.
class ScratchFile {
 public:
  ScratchFile() : path_(folder() / ("kebu_" + std::to_string(getpid()) + '_' + number() + ".db")) {
    remove();
  }
  explicit ScratchFile(const std::string& content) : ScratchFile() {
    std::ofstream(path_, std::ios::binary) << content;
  }
  ~ScratchFile() { remove(); }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  std::string path() const { return path_.string(); }
  std::string content() const {
    std::ifstream file(path_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  /// In memory where there is such a folder: thousands of files are written.
  static std::filesystem::path folder() {
    const std::filesystem::path memory = "/dev/shm";
    return std::filesystem::is_directory(memory) ? memory : std::filesystem::temp_directory_path();
  }
  static std::string number() {
    static std::atomic<int> last = 0;
    return std::to_string(++last);
  }
  void remove() const {
    for (const char* suffix : {"", "-journal", "-wal", "-shm"}) {
      std::error_code ignored;
      std::filesystem::remove(path_.string() + suffix, ignored);
    }
  }

  std::filesystem::path path_;
};

}  // namespace kebu::tests
