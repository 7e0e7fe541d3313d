// Runs a target without libFuzzer: every file of the corpus as it is, then inputs made of them by
// chance.
//
//   fuzz_NAME [--seed N] [--inputs N] [--dictionary FILE] FOLDER...
//
// Each input has a seed of its own, so that one is made again by `--seed ITS_SEED --inputs 1`. The
// target runs in a process of its own, so that the seed can be told whatever happens to it.

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "tests/fuzz/fuzz_target.h"
#include "tests/support/random.h"

namespace {

using namespace kebu::tests;

namespace fs = std::filesystem;

struct Options {
  std::uint64_t seed = 1;
  std::uint64_t inputs = 5000;
  std::string dictionary;
  std::vector<std::string> folders;
};

/// What the process that runs the target tells the one that watches it.
struct Progress {
  std::uint64_t seed = 0;  ///< of the running input; 0 while the corpus runs
  std::size_t file = 0;    ///< of the corpus
  std::uint64_t done = 0;
  double slowest = 0;  ///< seconds of the processor
  std::uint64_t slowestSeed = 0;
};

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path.string() + " cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<fs::path> filesOf(const std::vector<std::string>& folders) {
  std::vector<fs::path> files;
  for (const std::string& folder : folders) {
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      if (entry.is_regular_file()) files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

/// Without the escapes of a dictionary: \\, \" and \xHH.
std::string unescaped(const std::string& text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\' || i + 1 == text.size()) {
      result += text[i];
    } else if (text[++i] == 'x' && i + 2 < text.size()) {
      constexpr int hexadecimal = 16;
      result += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, hexadecimal));
      i += 2;
    } else {
      result += text[i];
    }
  }
  return result;
}

/// The words between quotes of a libFuzzer dictionary.
std::vector<std::string> wordsOf(const std::string& path) {
  std::vector<std::string> words{"'", "\"", "\n", "\t", "(", ")", "0", "-1", "9999999999"};
  if (path.empty()) return words;
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    const std::size_t from = line.find('"');
    const std::size_t to = line.rfind('"');
    if (line.starts_with('#') || from == std::string::npos || to <= from + 1) continue;
    words.push_back(unescaped(line.substr(from + 1, to - from - 1)));
  }
  return words;
}

class Mutator {
 public:
  Mutator(const std::vector<std::string>& corpus, const std::vector<std::string>& words,
          std::uint64_t seed)
      : corpus_(corpus), words_(words), random_(seed) {}

  std::string make() {
    std::string input = corpus_.empty() ? std::string() : random_.of(corpus_);
    for (std::size_t changes = 1 + random_.below(6); changes > 0; --changes) change(input);
    constexpr std::size_t longest = 4096;
    if (input.size() > longest) input.resize(longest);
    return input;
  }

 private:
  void change(std::string& input) {
    const std::size_t at = random_.below(input.size() + 1);
    const std::size_t length = random_.below(std::min<std::size_t>(input.size() - at, 32) + 1);
    switch (random_.below(7)) {
      case 0:
        input.erase(at, length);
        break;
      case 1:
        input.insert(at, input.substr(at, length));
        break;
      case 2:
        input.insert(at, random_.of(words_));
        break;
      case 3:
        input.insert(at, 1, static_cast<char>(random_.below(256)));
        break;
      case 4:
        if (at < input.size()) input[at] = static_cast<char>(random_.below(256));
        break;
      case 5:
        if (!corpus_.empty()) {
          const std::string& other = random_.of(corpus_);
          const std::size_t from = random_.below(other.size() + 1);
          input.insert(at, other.substr(from, random_.below(64)));
        }
        break;
      default:
        for (std::size_t times = random_.below(12); times > 0; --times) {
          input.insert(at, input.substr(at, length));
        }
    }
  }

  const std::vector<std::string>& corpus_;
  const std::vector<std::string>& words_;
  Random random_;
};

double processorSeconds() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

void runOne(const std::string& input, Progress& progress) {
  const double start = processorSeconds();
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
  const double took = processorSeconds() - start;
  if (took > progress.slowest) {
    progress.slowest = took;
    progress.slowestSeed = progress.seed;
  }
  if (took > 1) broken("the input takes " + std::to_string(took) + " s");
  ++progress.done;
}

/// What inputs are made of.
struct Material {
  std::vector<std::string> words;
  std::vector<fs::path> files;
  std::vector<std::string> corpus;  ///< what the files hold
};

void runAll(const Options& options, const Material& material, Progress& progress) {
  const auto& [words, files, corpus] = material;
  for (progress.file = 0; progress.file < corpus.size(); ++progress.file) {
    runOne(corpus[progress.file], progress);
  }
  for (std::uint64_t i = 0; i < options.inputs; ++i) {
    progress.seed = options.seed + i;
    runOne(Mutator(corpus, words, progress.seed).make(), progress);
  }
}

int watch(const Options& options) {
  Material material{wordsOf(options.dictionary), filesOf(options.folders), {}};
  for (const fs::path& file : material.files) material.corpus.push_back(contentOf(file));
  void* const shared =
      mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) throw std::runtime_error("no shared memory");
  auto& progress = *new (shared) Progress;
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process for the target");
  if (child == 0) {
    runAll(options, material, progress);
    std::exit(0);  // with the check for leaks
  }
  // An input that never ends is ended, long after it is too slow.
  constexpr int patience = 60;
  int status = 0;
  int unchanged = 0;
  for (std::uint64_t last = 0; waitpid(child, &status, WNOHANG) == 0;) {
    constexpr useconds_t pause = 50'000;
    usleep(pause);
    unchanged = progress.done == last ? unchanged + 1 : 0;
    last = progress.done;
    if (unchanged * pause > patience * 1'000'000) kill(child, SIGKILL);
  }
  const bool passed = WIFEXITED(status) && WEXITSTATUS(status) == 0;
  if (WIFSIGNALED(status)) std::cout << strsignal(WTERMSIG(status)) << '\n';
  if (!passed && progress.seed == 0) {
    std::cout << "FAILED with the file " << material.files.at(progress.file).string() << '\n';
  } else if (!passed) {
    const std::string kept = "failed-input-" + std::to_string(progress.seed);
    std::ofstream(kept, std::ios::binary)
        << Mutator(material.corpus, material.words, progress.seed).make();
    std::cout << "FAILED with the input of --seed " << progress.seed << " --inputs 1, kept as "
              << fs::absolute(kept).string() << '\n';
  }
  std::cout << "seed " << options.seed << ": " << progress.done << " inputs, slowest "
            << progress.slowest << " s (seed " << progress.slowestSeed << ")\n";
  return passed ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  Options options;
  try {
    for (int i = 1; i < argc; ++i) {
      const std::string word = argv[i];
      if (!word.starts_with("--")) {
        options.folders.push_back(word);
        continue;
      }
      if (i + 1 == argc) throw std::invalid_argument(word + " wants a value");
      const std::string value = argv[++i];
      if (word == "--seed") {
        options.seed = std::stoull(value);
      } else if (word == "--inputs") {
        options.inputs = std::stoull(value);
      } else if (word == "--dictionary") {
        options.dictionary = value;
      } else {
        throw std::invalid_argument("unknown option " + word);
      }
    }
    return watch(options);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
