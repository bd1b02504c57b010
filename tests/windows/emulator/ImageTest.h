#ifndef WRT_TESTS_IMAGE_TEST_H
#define WRT_TESTS_IMAGE_TEST_H

#include <cstdint>
#include <filesystem>
#include <vector>

namespace wrt::pe::test {

/// What the tests of the image tools are given: an image and the catalogue of its methods.
extern std::filesystem::path imageFile;
extern std::filesystem::path catalogueFile;

std::vector<std::uint8_t> readFile(const std::filesystem::path &file);

} // namespace wrt::pe::test

#endif
