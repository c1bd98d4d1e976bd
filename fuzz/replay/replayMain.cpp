/// Replays stored inputs through a fuzz target without libFuzzer: the arguments are files or
/// folders of files.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

bool replay(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    std::cerr << "cannot read " << file << '\n';
    return false;
  }
  const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
  const std::vector<std::uint8_t> input(bytes.begin(), bytes.end());
  LLVMFuzzerTestOneInput(input.data(), input.size());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t replayed = 0;
  for (int i = 1; i < argc; ++i) {
    const std::filesystem::path path = argv[i];
    if (!std::filesystem::is_directory(path)) {
      if (!replay(path)) return 1;
      ++replayed;
      continue;
    }
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
      if (!entry.is_regular_file()) continue;
      if (!replay(entry.path())) return 1;
      ++replayed;
    }
  }
  std::cout << replayed << " inputs replayed\n";
  return replayed == 0 ? 1 : 0;
}
