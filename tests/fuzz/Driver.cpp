// Runs a fuzzer without libFuzzer's own driver: replays the inputs in files and folders, or a
// number of random ones. What ends the process is left in the file "crash".

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <unistd.h>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);
/// So that what the sanitizers find comes to the handler below.
extern "C" __attribute__((visibility("default"), used)) const char *__asan_default_options() {
  return "abort_on_error=1";
}

namespace {

namespace fs = std::filesystem;
using Input = std::vector<uint8_t>;

Input current;

void keepInput(int signal) {
  const int file = open("crash", O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (file < 0 || write(file, current.data(), current.size()) < 0)
    _exit(2);
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

void run(Input input) {
  current = std::move(input);
  LLVMFuzzerTestOneInput(current.data(), current.size());
}

int replay(const fs::path &path) {
  if (!fs::is_directory(path)) {
    std::ifstream file(path, std::ios::binary);
    run({std::istreambuf_iterator<char>(file), {}});
    return 1;
  }
  int count = 0;
  for (const auto &entry : fs::directory_iterator(path))
    count += replay(entry.path());
  return count;
}

int search(uint64_t seed, int count) {
  std::mt19937_64 random(seed);
  for (int i = 0; i < count; ++i) {
    Input input(8 + random() % 240);
    std::ranges::generate(input, [&] { return static_cast<uint8_t>(random() >> 32); });
    run(std::move(input));
  }
  return count;
}

} // namespace

int main(int count, char **arguments) {
  std::signal(SIGABRT, keepInput);
  std::signal(SIGSEGV, keepInput);
  int done = 0;
  if (count == 4 && std::strcmp(arguments[1], "--random") == 0)
    done = search(std::strtoull(arguments[2], nullptr, 10), std::atoi(arguments[3]));
  else
    for (int i = 1; i < count; ++i)
      done += replay(arguments[i]);
  std::printf("%d inputs, 0 wrong\n", done);
  if (done > 0)
    return 0;
  std::fprintf(stderr, "Usage: %s INPUT... | --random SEED COUNT\n", arguments[0]);
  return 2;
}
