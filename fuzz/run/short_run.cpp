#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

// A short run of a fuzzer without the engine of Clang: the seeds, and then so many cases made of them by
// chance, always the same ones.
//
//     fuzz_<name> CORPUS CASES

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const *data, std::size_t size);

namespace {
using bytes = std::vector<std::uint8_t>;

class mutator
{
public:
    explicit mutator(std::vector<bytes> const &seeds) : f_seeds(seeds) {}
    bytes next()
    {
        bytes made = f_seeds[below(f_seeds.size())];
        for (auto steps = 1 + below(8); steps > 0; --steps)
            change(made);
        return made;
    }

private:
    static constexpr std::size_t c_longest = 1 << 16;

    std::size_t below(std::size_t bound) { return bound ? f_random() % bound : 0; }
    void change(bytes &made)
    {
        constexpr std::uint8_t c_odd[] = {0, 1, 0x7F, 0x80, 0xFF, '0', '9', '<', '&', '"', ' ', '\n'};
        auto const at = below(made.size());
        auto const left = made.size() - at;
        auto const place = made.begin() + static_cast<std::ptrdiff_t>(at);
        switch (below(made.empty() ? 2 : 8)) {
        case 0: { // random bytes in
            bytes more(1 + below(16));
            std::generate(more.begin(), more.end(), [&] { return static_cast<std::uint8_t>(f_random()); });
            made.insert(place, more.begin(), more.end());
            break;
        }
        case 1: { // a part of another one in
            bytes const &other = f_seeds[below(f_seeds.size())];
            auto const from = other.begin() + static_cast<std::ptrdiff_t>(below(other.size()));
            auto const length = below(static_cast<std::size_t>(other.end() - from));
            if (made.size() + length < c_longest)
                made.insert(place, from, from + static_cast<std::ptrdiff_t>(length));
            break;
        }
        case 2:
            made.resize(at);
            break;
        case 3: // a part out
            made.erase(place, place + static_cast<std::ptrdiff_t>(below(left)));
            break;
        case 4:
            *place ^= static_cast<std::uint8_t>(1U << below(8));
            break;
        case 5:
            *place = c_odd[below(std::size(c_odd))];
            break;
        case 6: // a number of four bytes
            std::fill_n(place, std::min<std::size_t>(4, left), below(2) ? 0xFF : 0);
            break;
        default:
            *place = static_cast<std::uint8_t>(f_random());
            break;
        }
    }

    std::vector<bytes> const &f_seeds;
    std::mt19937 f_random;
};
} // namespace

int main(int argc, char **argv)
{
    if (argc != 3)
        return 2;
    std::vector<std::filesystem::path> files;
    for (auto const &entry : std::filesystem::directory_iterator(argv[1]))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<bytes> seeds(1);
    for (auto const &path : files) {
        std::ifstream file(path, std::ios::binary);
        seeds.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    auto const began = std::chrono::steady_clock::now();
    for (bytes const &seed : seeds)
        LLVMFuzzerTestOneInput(seed.data(), seed.size());
    mutator cases(seeds);
    long const count = std::strtol(argv[2], nullptr, 10);
    for (long i = 0; i < count; ++i) {
        bytes const made = cases.next();
        LLVMFuzzerTestOneInput(made.data(), made.size());
    }
    std::chrono::duration<double> const took = std::chrono::steady_clock::now() - began;
    std::printf("%ld cases, %.0f a second\n", count, static_cast<double>(count) / took.count());
    return 0;
}
