#pragma once

#include <ogrsf_frmts.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <malloc.h>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// A table of 1,000,000 points with 12 fields in each format, and the clock that the benchmarks of data
/// access share. The files are made once in the build folder and kept for the next run.
namespace vx_bench {
inline constexpr int c_records = 1'000'000;
inline constexpr int c_fields = 12;

/// Fields of the table. The number at the end of a name counts its different values; `c_number` and `c_whole`
/// have null cells.
enum field : int
{
    c_name = 0,
    c_text_200 = 1,
    c_text_2000 = 2,
    c_text_1000000 = 3,
    c_whole = 4,
    c_whole_200 = 5,
    c_whole_2000 = 6,
    c_whole_1000000 = 7,
    c_number = 8,
    c_number_1000000 = 9,
    c_big = 10,
    c_note = 11,
};

/// Each number below `c_records` once, in no order: scattered over 20 bits, and again where that is too
/// great.
inline int shuffled(int record)
{
    static_assert(c_records <= 1 << 20);
    auto value = static_cast<std::uint32_t>(record);
    do {
        for (int round = 0; round < 3; ++round) {
            value = value * 0x9e375U & 0xfffff; // odd: no two numbers meet
            value ^= value >> 11;
        }
    } while (value >= c_records);
    return static_cast<int>(value);
}

inline void fill(OGRFeature &feature, int record, std::mt19937 &random)
{
    auto const below = [&](unsigned bound) { return static_cast<int>(random() % bound); };
    char text[40];
    auto const set_text = [&](int field, char const *form, int number) {
        std::snprintf(text, sizeof text, form, number);
        feature.SetField(field, text);
    };
    int const mixed = shuffled(record);
    set_text(c_name, "place %d", record);
    set_text(c_text_200, "class %d", below(200));
    set_text(c_text_2000, "district %d", below(2000));
    set_text(c_text_1000000, "parcel %07d", mixed);
    if (record % 10)
        feature.SetField(c_whole, below(100'000) - 50'000);
    feature.SetField(c_whole_200, below(200));
    feature.SetField(c_whole_2000, below(2000));
    feature.SetField(c_whole_1000000, mixed);
    if (record % 7)
        feature.SetField(c_number, below(2'000'000) / 1000.0);
    feature.SetField(c_number_1000000, mixed * 0.25);
    feature.SetField(c_big, static_cast<GIntBig>(5'000'000'000LL + record));
    feature.SetField(c_note, "some text that nobody asks for");
}

/// The file of the format, made on first use; empty when it cannot be made.
inline std::string sample_file(char const *driver_name, char const *file_name)
{
    auto const folder = std::filesystem::path(VX_BINARY_DIR) / "bench_data";
    std::filesystem::create_directories(folder);
    auto const file = (folder / file_name).string();
    if (std::filesystem::exists(file))
        return file;
    std::fprintf(stderr, "making %s ...\n", file.c_str());
    auto *const driver = GetGDALDriverManager()->GetDriverByName(driver_name);
    std::unique_ptr<GDALDataset> const set(driver->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    auto *const layer = set ? set->CreateLayer("points", nullptr, wkbPoint) : nullptr;
    if (!layer)
        return {};
    struct
    {
        char const *name;
        OGRFieldType type;
        int width;
        int precision;
    } const fields[c_fields] = {
        {"name", OFTString, 20, 0},      {"text200", OFTString, 12, 0}, {"text2000", OFTString, 16, 0},
        {"text1m", OFTString, 16, 0},    {"whole", OFTInteger, 9, 0},   {"whole200", OFTInteger, 9, 0},
        {"whole2000", OFTInteger, 9, 0}, {"whole1m", OFTInteger, 9, 0}, {"number", OFTReal, 16, 4},
        {"number1m", OFTReal, 16, 4},    {"big", OFTInteger64, 18, 0},  {"note", OFTString, 32, 0},
    };
    for (auto const &f : fields) {
        OGRFieldDefn defn(f.name, f.type);
        if (std::string_view(driver_name) == "ESRI Shapefile") {
            defn.SetWidth(f.width);
            defn.SetPrecision(f.precision);
        }
        layer->CreateField(&defn);
    }
    std::mt19937 random(1);
    (void)set->StartTransaction();
    for (int i = 0; i < c_records; ++i) {
        OGRFeature feature(layer->GetLayerDefn());
        OGRPoint const point(i % 1000, i / 1000);
        feature.SetGeometry(&point);
        fill(feature, i, random);
        if (layer->CreateFeature(&feature) != OGRERR_NONE)
            return {};
    }
    (void)set->CommitTransaction();
    return file;
}

/// Time by the wall clock, and time of the processor in this process, which other programs do not disturb.
struct two_times
{
    double wall = 1e300;
    double processor = 1e300;
};

inline double processor_now()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

/// What `work` gives back is ended after the clock has stopped. The heap is brought in order before, or the
/// first greater allocation would pay for joining what the other way has freed.
template <class Work>
two_times measure(Work work)
{
    malloc_trim(0);
    auto const start = std::chrono::steady_clock::now();
    double const processor_start = processor_now();
    auto const stop = [&] {
        double const processor = processor_now() - processor_start;
        auto const wall = std::chrono::steady_clock::now() - start;
        return two_times{std::chrono::duration<double>(wall).count(), processor};
    };
    if constexpr (std::is_void_v<decltype(work())>) {
        work();
        return stop();
    } else {
        auto const result = work();
        return stop();
    }
}

/// The least times of two ways that are run in turn: what disturbs the machine meets both.
struct pair_of_times
{
    two_times plain;
    two_times own;
};

template <class Plain, class Own>
pair_of_times compare(Plain plain, Own own, int rounds = 5)
{
    pair_of_times least;
    auto const lower = [](two_times &target, two_times const &times) {
        target.wall = std::min(target.wall, times.wall);
        target.processor = std::min(target.processor, times.processor);
    };
    for (int i = 0; i < rounds; ++i) {
        lower(least.plain, measure(plain));
        lower(least.own, measure(own));
    }
    return least;
}

/// The bound is on the processor's time.
inline void print(char const *what, pair_of_times const &times, double bound)
{
    double const ratio = times.own.processor / times.plain.processor;
    std::printf("  %-32s plain %6.0f ms  own %6.0f ms  ratio %5.2f (wall %5.2f)  bound %4.2f %s\n", what,
                times.plain.processor * 1e3, times.own.processor * 1e3, ratio,
                times.own.wall / times.plain.wall, bound, ratio <= bound ? "" : "EXCEEDED");
    std::fflush(stdout);
}

/// All other fields and the geometry are ignored, as far as the format can.
inline void keep_only(OGRLayer &layer, int field)
{
    std::vector<char const *> ignored{"OGR_GEOMETRY", "OGR_STYLE"};
    for (int i = 0; i < layer.GetLayerDefn()->GetFieldCount(); ++i)
        if (i != field)
            ignored.push_back(layer.GetLayerDefn()->GetFieldDefn(i)->GetNameRef());
    ignored.push_back(nullptr);
    (void)layer.SetIgnoredFields(ignored.data());
}
} // namespace vx_bench
