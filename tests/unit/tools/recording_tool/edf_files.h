#pragma once

#include <edflib.h>

#include <cmath>
#include <string>
#include <vector>

#include "recordings.h"

namespace korvinel::tool {

/// A recording with every sample byte that a file can hold.
inline std::string variedRecording(int blocks, const recordings::Notes& notes = {{1, "Nota: "}}) {
  std::string bytes = recordings::header(notes);
  unsigned value = 1;
  for (int record = 0; record < 4 * blocks; ++record) {
    for (int s = 0; s < 256; ++s) {
      value = value * 1'103'515'245U + 12'345U;
      unsigned byte = 1 + (value >> 16U) % 255;
      if (byte == 9 || byte == 10 || byte == 26) byte = 128;
      bytes += static_cast<char>(static_cast<unsigned char>(byte));
    }
    bytes += "-\r\n";
  }
  return bytes;
}

/// An EDF file of sines: F3 .. T6 have 4, 8, 12 and 20 Hz of 50 microvolts.
inline std::string sineFile(const std::string& path, int rate, int seconds, const char* unit, double fullScale,
                            double amplitude) {
  const int file = edfopen_file_writeonly(path.c_str(), EDFLIB_FILETYPE_EDFPLUS, 5);
  const char* labels[] = {"ECG", "EEG F3-Ref", "F4..", "p7", "T6"};
  for (int signal = 0; signal < 5; ++signal) {
    edf_set_samplefrequency(file, signal, rate);
    edf_set_physical_maximum(file, signal, fullScale);
    edf_set_physical_minimum(file, signal, -fullScale);
    edf_set_digital_maximum(file, signal, 32767);
    edf_set_digital_minimum(file, signal, -32768);
    edf_set_label(file, signal, labels[signal]);
    edf_set_physical_dimension(file, signal, unit);
  }
  const double hertz[] = {1, 4, 8, 12, 20};
  for (int second = 0; second < seconds; ++second)
    for (const double h : hertz) {
      std::vector<double> samples;
      for (int i = 0; i < rate; ++i)
        samples.push_back(amplitude * std::sin(2 * 3.14159265358979 * h * (second + i / double(rate))));
      edfwrite_physical_samples(file, samples.data());
    }
  edfclose_file(file);
  return path;
}

}  // namespace korvinel::tool
