#ifndef TESTS_WAVFILE_H
#define TESTS_WAVFILE_H

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

/* The samples of a WAV file of 22,050 Hz, one channel, 16 bits; nothing unless every field of its
 * header is right and its size is what the header says. */
std::optional<std::vector<std::int16_t>> readWav(const QString& file);

/* The largest absolute sample from `begin` to the end. */
int peakOf(const std::vector<std::int16_t>& samples, std::size_t begin = 0);

/* Samples of the longest stretch between two sounds in which nothing can be heard. */
int longestSilenceOf(const std::vector<std::int16_t>& samples);

#endif
