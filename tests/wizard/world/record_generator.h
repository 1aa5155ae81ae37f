// Records of every kind, drawn by chance. Each run draws new ones; a failure names the seed, and
// VORN_SEED=<seed> draws the same ones again.
#ifndef TESTS_WIZARD_RECORD_GENERATOR_H
#define TESTS_WIZARD_RECORD_GENERATOR_H

#include <initializer_list>
#include <random>
#include <string>

#include "wizard/world/record_bytes.h"

// Draws records whose fields are random bytes, texts that fill them, texts with bytes behind their
// NUL, and nothing.
class RecordGenerator
{
public:
    explicit RecordGenerator(unsigned seed) : m_random(seed) {}

    RecordBytes record();

private:
    unsigned below(unsigned limit) { return unsigned(m_random() % limit); }
    unsigned oneOf(std::initializer_list<unsigned> values);
    std::string text(std::size_t width);

    std::mt19937 m_random;
};

// The seed to begin with, which is printed.
unsigned firstSeed();

#endif
