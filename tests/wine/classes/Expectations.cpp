#include "tests/wine/classes/Expectations.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace wrt::test {

namespace {

Expectations answers;

const std::map<std::string, Answer> words = {
    {"works", Answer::Works},
    {"stub", Answer::Stub},
    {"not_implemented", Answer::NotImplemented},
    {"no_interface", Answer::NoInterface},
};

} // namespace

void readExpectations(const char *path) {
  std::ifstream file(path);
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    line.erase(std::min(line.find('#'), line.size()));
    std::istringstream parts(line);
    std::string name, word;
    if (!(parts >> name))
      continue;
    parts >> word;
    if (!words.contains(word) || !answers.emplace(name, words.at(word)).second) {
      std::fprintf(stderr, "%s:%d: \"%s\" is no answer or the second one\n", path, number,
                   word.c_str());
      std::exit(2);
    }
  }
  if (answers.empty()) {
    std::fprintf(stderr, "%s: no expectations\n", path);
    std::exit(2);
  }
}

const Expectations &expectations() { return answers; }

} // namespace wrt::test
