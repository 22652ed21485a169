// Makes the two sound files of the program, the click of the ball and the system beep.
//
//   make_sounds <folder to write into>
//
// AIFF files, big-endian, one channel of signed 16-bit samples at 44,100 Hz:
//
//   "FORM" size "AIFF"
//   "COMM" 18   channels (2 bytes), sample frames (4), bits (2), rate (10, extended precision)
//   "SSND" size offset 0 (4), block size 0 (4), samples

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <numbers>
#include <string>
#include <string_view>
#include <vector>

#include "tools/file_bytes.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using Samples = std::vector<double>;

constexpr std::uint32_t kRate = 44'100;

// Half of full scale: 6 decibels below it.
constexpr double kPeak = 0.5 * 32'767;

void Put(Bytes& bytes, std::string_view mark) {
    bytes.insert(bytes.end(), mark.begin(), mark.end());
}

void Put(Bytes& bytes, std::uint64_t number, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<std::uint8_t>(number >> shift));
    }
}

void PutChunk(Bytes& bytes, std::string_view mark, const Bytes& content) {
    Put(bytes, mark);
    Put(bytes, content.size(), 4);
    bytes.insert(bytes.end(), content.begin(), content.end());
}

// A whole number in extended precision: sign and exponent, then 64 bits with the highest one set.
void PutExtended(Bytes& bytes, std::uint64_t number) {
    constexpr std::uint64_t kBias = 16'383;
    const auto exponent = static_cast<std::uint64_t>(std::bit_width(number)) - 1;
    Put(bytes, kBias + exponent, 2);
    Put(bytes, number << (63 - exponent), 8);
}

Bytes Aiff(const Samples& samples) {
    Bytes common;
    Put(common, 1, 2);
    Put(common, samples.size(), 4);
    Put(common, 16, 2);
    PutExtended(common, kRate);

    Bytes sound;
    Put(sound, 0, 4);
    Put(sound, 0, 4);
    for (const double sample : samples) {
        Put(sound, static_cast<std::uint64_t>(std::lround(sample)), 2);
    }

    Bytes form;
    Put(form, "AIFF");
    PutChunk(form, "COMM", common);
    PutChunk(form, "SSND", sound);

    Bytes file;
    PutChunk(file, "FORM", form);
    return file;
}

double Wave(double hertz, double seconds) {
    return std::sin(2 * std::numbers::pi * hertz * seconds);
}

// A partial of a struck body: it rings at its pitch and fades by half every `halfLife` seconds.
struct Partial {
    double Hertz;
    double Loudness;
    double HalfLife;
};

// A small hard ball on wood: a low body that lasts and bright partials that are gone at once.
constexpr Partial kClick[] = {
    {820, 0.6, 0.0060},
    {1'730, 1.0, 0.0035},
    {3'150, 0.7, 0.0018},
    {5'200, 0.4, 0.0009},
};
constexpr double kClickSeconds = 0.040;

// The odd partials of a square wave, weaker the higher they are: a buzzer behind a soft cover.
constexpr Partial kBeep[] = {
    {880, 1.0, 0.5},
    {2'640, 0.22, 0.1},
    {4'400, 0.07, 0.05},
};
constexpr double kBeepSeconds = 0.150;

// How the sound comes in and goes out: along half a cosine, so that nothing jumps at either end.
struct Ramps {
    double Attack;   // seconds
    double Release;  // seconds
};

double Ramp(double part) {
    return 0.5 - 0.5 * std::cos(std::numbers::pi * std::clamp(part, 0.0, 1.0));
}

template <std::size_t Count>
Samples Sound(const Partial (&partials)[Count], double seconds, const Ramps& ramps) {
    Samples samples(static_cast<std::size_t>(seconds * kRate));
    double loudest = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double now = static_cast<double>(i) / kRate;
        const double left = static_cast<double>(samples.size() - 1 - i) / kRate;
        double sum = 0;
        for (const Partial& partial : partials) {
            sum += partial.Loudness * std::exp2(-now / partial.HalfLife) * Wave(partial.Hertz, now);
        }
        samples[i] = sum * Ramp(now / ramps.Attack) * Ramp(left / ramps.Release);
        loudest = std::max(loudest, std::abs(samples[i]));
    }
    for (double& sample : samples) sample *= kPeak / loudest;
    return samples;
}

}  // namespace

int main(int count, char** words) {
    if (count != 2) {
        std::cerr << "make_sounds <folder to write into>\n";
        return EXIT_FAILURE;
    }
    const std::string folder = words[1];
    const Samples click = Sound(kClick, kClickSeconds, {0.0006, 0.010});
    const Samples beep = Sound(kBeep, kBeepSeconds, {0.006, 0.040});
    const bool written = tools::WriteFile(folder + "/click.aif", Aiff(click)) &&
                         tools::WriteFile(folder + "/sysbeep.aif", Aiff(beep));
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
