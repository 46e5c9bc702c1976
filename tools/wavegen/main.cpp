// zorbel-wavegen DIR: writes the station's three wave files, "alarm.wav",
// "zablokregul.wav" and "odblokregul.wav", into DIR. Each is a short motif
// of soft bell-like notes, 16-bit PCM mono at 22050 Hz; the output is the
// same on every run.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int rate = 22050;
constexpr double pi = std::numbers::pi;

struct Note {
    double frequency; // Hz
    double start;     // s from the start of the file
    double length;    // s
};

// A note's level at `t` seconds into it: a raised-cosine attack, a gentle
// exponential decay and a raised-cosine release to silence at its end.
double envelope(double t, double length)
{
    constexpr double attack = 0.012, release = 0.04;
    double level = std::exp(-3.0 * t / length);
    if (t < attack)
        level *= 0.5 - 0.5 * std::cos(pi * t / attack);
    if (t > length - release)
        level *= 0.5 - 0.5 * std::cos(pi * (length - t) / release);
    return level;
}

std::vector<std::int16_t> render(const std::vector<Note> &notes, double length)
{
    std::vector<double> mix(std::size_t(length * rate), 0.0);
    for (const Note &n : notes) {
        const std::size_t first = std::size_t(n.start * rate);
        const std::size_t count = std::size_t(n.length * rate);
        for (std::size_t i = 0; i < count && first + i < mix.size(); ++i) {
            const double t = double(i) / rate, w = 2 * pi * n.frequency * t;
            // the fundamental with a soft octave and twelfth: a chime, not a beep
            const double tone = std::sin(w) + 0.3 * std::sin(2 * w) + 0.1 * std::sin(3 * w);
            mix[first + i] += 0.42 * envelope(t, n.length) * tone;
        }
    }
    std::vector<std::int16_t> samples;
    samples.reserve(mix.size());
    for (double v : mix)
        samples.push_back(std::int16_t(std::lround(std::clamp(v, -1.0, 1.0) * 32767)));
    return samples;
}

void put(std::ofstream &out, std::uint32_t value, int bytes)
{
    for (int i = 0; i < bytes; ++i)
        out.put(char((value >> (8 * i)) & 0xff));
}

bool write(const std::filesystem::path &file, const std::vector<std::int16_t> &samples)
{
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    const std::uint32_t data = std::uint32_t(samples.size() * 2);
    out.write("RIFF", 4);
    put(out, 36 + data, 4);
    out.write("WAVEfmt ", 8);
    put(out, 16, 4);       // size of the format chunk
    put(out, 1, 2);        // PCM
    put(out, 1, 2);        // mono
    put(out, rate, 4);
    put(out, rate * 2, 4); // bytes per second
    put(out, 2, 2);        // bytes per frame
    put(out, 16, 2);       // bits per sample
    out.write("data", 4);
    put(out, data, 4);
    for (std::int16_t s : samples)
        put(out, std::uint16_t(s), 2);
    out.close();
    return bool(out);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::cerr << "usage: zorbel-wavegen DIR\n";
        return 2;
    }
    const std::filesystem::path dir(argv[1]);
    std::error_code ec;
    std::filesystem::create_directories(dir, ec);

    struct Sound {
        const char *name;
        std::vector<Note> notes;
        double length;
    };
    const Sound sounds[] = {
        // two chimes of a falling fourth: heard, not shrill
        {"alarm.wav", {{880, 0, 0.2}, {660, 0.2, 0.2}, {880, 0.44, 0.2}, {660, 0.64, 0.26}}, 0.9},
        // blocked: a falling fifth, E5 to A4
        {"zablokregul.wav", {{659.26, 0, 0.2}, {440, 0.2, 0.3}}, 0.5},
        // unblocked: a rising fifth, C5 to G5
        {"odblokregul.wav", {{523.25, 0, 0.2}, {783.99, 0.2, 0.3}}, 0.5},
    };
    for (const Sound &s : sounds) {
        if (!write(dir / s.name, render(s.notes, s.length))) {
            std::cerr << "zorbel-wavegen: cannot write " << (dir / s.name).string() << "\n";
            return 1;
        }
    }
    return 0;
}
