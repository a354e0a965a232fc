// Runs a target without a fuzzer: the cases of a corpus, and so many random ones that a number seeds.
//
//     target [--random=COUNT] [--seed=NUMBER] [--longest=BYTES] [file or folder ...]
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "tests/fuzz/target.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

/// What runs at this moment, for the report when the process ends.
std::string current;

void run(const Bytes& bytes) { LLVMFuzzerTestOneInput(bytes.data(), bytes.size()); }

std::size_t runFiles(const std::filesystem::path& place) {
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(place)) {
        std::copy_if(std::filesystem::directory_iterator(place), {}, std::back_inserter(files),
                     [](const auto& entry) { return std::filesystem::is_regular_file(entry); });
        std::sort(files.begin(), files.end());
    } else {
        files.push_back(place);
    }
    for (const std::filesystem::path& file : files) {
        std::ifstream in(file, std::ios::binary);
        if (!in) {
            std::fprintf(stderr, "cannot read %s\n", file.c_str());
            std::exit(2);
        }
        current = file.string();
        run(Bytes(std::istreambuf_iterator<char>(in), {}));
    }
    return files.size();
}

void runRandom(std::size_t seed, std::size_t count, std::size_t longest) {
    for (std::size_t number = 0; number < count; ++number) {
        current = "--random=1 --seed=" + std::to_string(seed + number);
        std::mt19937_64 random(seed + number);
        Bytes bytes(random() % (longest + 1));
        std::generate(bytes.begin(), bytes.end(), [&random] { return static_cast<std::uint8_t>(random()); });
        run(bytes);
    }
}

extern "C" void sayWhatRan(int /*signal*/) {
    std::fprintf(stderr, "in the case: %s\n", current.c_str());
    std::_Exit(1);
}

}  // namespace

int main(int argc, char** argv) {
    std::signal(SIGABRT, sayWhatRan);
    std::size_t count = 0;
    std::size_t seed = 1;
    std::size_t longest = 600;
    std::size_t files = 0;
    for (int index = 1; index < argc; ++index) {
        const std::string_view argument = argv[index];
        const auto number = [&](std::string_view option, std::size_t& value) {
            if (!argument.starts_with(option)) {
                return false;
            }
            value = std::stoul(std::string(argument.substr(option.size())));
            return true;
        };
        if (!number("--random=", count) && !number("--seed=", seed) && !number("--longest=", longest)) {
            files += runFiles(argument);
        }
    }
    runRandom(seed, count, longest);
    std::printf("%zu files and %zu random cases\n", files, count);
    return files + count == 0 ? 2 : 0;
}
