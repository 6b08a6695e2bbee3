// Makes the program's two sounds, each note summed from a few decaying partials: a start chime and
// a calm loop for the version window. Writes 16-bit stereo WAVE files into the folder given.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <numbers>
#include <span>
#include <string>
#include <vector>

namespace {

constexpr int sampleRate = 44100;
constexpr double peak = 0.6;  // of full scale

struct Note {
  double start;      // seconds
  double frequency;  // hertz
  double length;     // seconds until it has all but died away
  double loudness;
  double place;  // 0 left, 1 right
};

struct Sound {
  explicit Sound(double seconds) : left(samples(seconds)), right(samples(seconds)) {}
  static std::size_t samples(double seconds) {
    return static_cast<std::size_t>(seconds * sampleRate);
  }
  std::vector<double> left;
  std::vector<double> right;
};

// A struck bar: partials that die away the faster the higher they are.
double tone(const Note& note, double time) {
  constexpr double partials[][2] = {{1, 1}, {2, 0.35}, {3, 0.12}, {4.2, 0.06}};
  constexpr double attack = 0.012;  // seconds
  const double rise = std::min(time / attack, 1.0);
  double sum = 0;
  for (const auto& [multiple, share] : partials) {
    const double decay = std::exp(-5 * multiple * time / (note.length * (1 + multiple / 3)));
    sum += share * decay * std::sin(2 * std::numbers::pi * note.frequency * multiple * time);
  }
  return rise * rise * sum * note.loudness;
}

// Adds a note. What rings past the end goes on at the beginning if the sound loops.
void add(Sound& sound, const Note& note, bool loops) {
  const std::size_t first = Sound::samples(note.start);
  const std::size_t count = Sound::samples(note.length * 2);
  for (std::size_t i = 0; i < count; ++i) {
    std::size_t place = first + i;
    if (place >= sound.left.size()) {
      if (!loops) return;
      place %= sound.left.size();
    }
    const double value = tone(note, static_cast<double>(i) / sampleRate);
    sound.left[place] += value * std::sqrt(1 - note.place);
    sound.right[place] += value * std::sqrt(note.place);
  }
}

void fadeOut(std::vector<double>& channel) {
  const std::size_t length = std::min(channel.size(), Sound::samples(0.4));
  for (std::size_t i = 0; i < length; ++i) {
    channel[channel.size() - 1 - i] *= static_cast<double>(i) / static_cast<double>(length);
  }
}

// A rising fifth, octave and third over a low ground: an engine that starts at the first turn.
Sound startChime() {
  Sound sound(3.2);
  for (const Note& note : {Note{0.00, 146.83, 2.4, 0.7, 0.5}, Note{0.00, 293.66, 1.8, 0.6, 0.35},
                           Note{0.16, 440.00, 1.8, 0.6, 0.65}, Note{0.32, 587.33, 1.9, 0.6, 0.4},
                           Note{0.50, 739.99, 2.2, 0.7, 0.6}}) {
    add(sound, note, false);
  }
  fadeOut(sound.left);
  fadeOut(sound.right);
  return sound;
}

// Four quiet bars of broken chords over their roots.
Sound versionLoop() {
  constexpr double bar = 3;  // seconds
  constexpr double beat = 0.375;
  constexpr double chords[4][5] = {{146.83, 293.66, 369.99, 440.00, 587.33},
                                   {123.47, 246.94, 293.66, 369.99, 493.88},
                                   {98.00, 293.66, 392.00, 493.88, 587.33},
                                   {110.00, 277.18, 329.63, 440.00, 554.37}};
  constexpr int order[8] = {1, 2, 3, 4, 3, 2, 3, 2};
  Sound sound(4 * bar);
  double start = 0;
  for (const auto& chord : chords) {
    add(sound, {start, chord[0], 3.2, 0.55, 0.5}, true);
    for (int i = 0; i < 8; ++i) {
      add(sound, {start + i * beat, chord[order[i]], 1.3, 0.3, i % 2 == 0 ? 0.35 : 0.65}, true);
    }
    start += bar;
  }
  return sound;
}

void put(std::string& file, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) file.push_back(static_cast<char>(value >> (8 * i) & 0xFF));
}

std::string waveFile(const Sound& sound) {
  double highest = 1e-9;
  for (const auto* channel : {&sound.left, &sound.right}) {
    for (const double value : *channel) highest = std::max(highest, std::abs(value));
  }
  const auto dataBytes = static_cast<std::uint32_t>(sound.left.size() * 4);
  std::string file = "RIFF";
  put(file, dataBytes + 36, 4);
  file += "WAVEfmt ";
  put(file, 16, 4);  // length of the format block
  put(file, 1, 2);   // plain samples
  put(file, 2, 2);   // channels
  put(file, sampleRate, 4);
  put(file, sampleRate * 4, 4);  // bytes a second
  put(file, 4, 2);               // bytes a frame
  put(file, 16, 2);              // bits a sample
  file += "data";
  put(file, dataBytes, 4);
  for (std::size_t i = 0; i < sound.left.size(); ++i) {
    for (const double value : {sound.left[i], sound.right[i]}) {
      const auto sample = static_cast<std::int16_t>(std::lround(value / highest * peak * 32767));
      put(file, static_cast<std::uint16_t>(sample), 2);
    }
  }
  return file;
}

bool write(const std::string& path, const Sound& sound) {
  const std::string bytes = waveFile(sound);
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return file.good();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_sounds FOLDER\n";
    return 2;
  }
  const std::string folder = argv[1];
  const bool written = write(folder + "/first_demo.wav", startChime()) &&
                       write(folder + "/info_demo.wav", versionLoop());
  return written ? 0 : 1;
}
