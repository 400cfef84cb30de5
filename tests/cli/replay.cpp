#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void run(const std::vector<std::uint8_t>& input) {
  LLVMFuzzerTestOneInput(input.data(), input.size());
}

/// Some bytes less, more, or others.
std::vector<std::uint8_t> altered(std::vector<std::uint8_t> input, std::mt19937& dice) {
  constexpr char likely[] = "\",\n\r#:=.-+eE09 \x80\xC2";
  for (unsigned i = dice() % 4 + 1; i > 0 && !input.empty(); --i) {
    const auto place = input.begin() + static_cast<std::ptrdiff_t>(dice() % input.size());
    switch (dice() % 3) {
      case 0:
        *place = static_cast<std::uint8_t>(likely[dice() % sizeof likely]);
        break;
      case 1:
        input.erase(place);
        break;
      default:
        input.insert(place, static_cast<std::uint8_t>(likely[dice() % sizeof likely]));
    }
  }
  return input;
}

}  // namespace

/// replay FOLDER: the seeds of the fuzzer, and some thousand inputs beside them, without a fuzzer.
int main(int, char** argv) {
  std::mt19937 dice(1967);
  for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::vector<std::uint8_t> seed{std::istreambuf_iterator<char>(file), {}};
    run(seed);
    for (int i = 0; i < 500; ++i) {
      run(altered(seed, dice));
    }
  }
}
