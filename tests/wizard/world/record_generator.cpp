#include "wizard/world/record_generator.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

RecordBytes RecordGenerator::record()
{
    RecordBytes bytes;
    for (std::size_t i = 0; i < 1168; ++i)
        bytes.byte(i, below(256));
    const std::pair<std::size_t, std::size_t> texts[] = {
        {8, 100},  {108, 100}, {208, 100}, {760, 100}, {862, 100},
        {381, 44}, {425, 64},  {489, 64},  {963, 100}, {1066, 100}};
    for (const auto& [offset, width] : texts)
        bytes.text(offset, text(width));
    bytes.half(320, oneOf({0, 15, 60, 120, 360, 1440, 30, below(65536)}));
    bytes.half(568, oneOf({0, 1, 5, 15, 30, 60, 61, below(65536)}));
    bytes.byte(380, oneOf({0, 1, 2, below(256)}));
    bytes.byte(571, oneOf({0, 14, 7, 6, 4, 75, 71, 70, 68, below(256)}));
    bytes.byte(5, (bytes.read(5, 1) & 0xF0) | below(16));
    for (std::size_t offset : {312, 316, 560, 564})
        bytes.word(offset, oneOf({0, 0xFFFFFFFF, 0x0A000001, unsigned(m_random())}));
    return bytes;
}

unsigned RecordGenerator::oneOf(std::initializer_list<unsigned> values)
{
    return values.begin()[below(unsigned(values.size()))];
}

std::string RecordGenerator::text(std::size_t width)
{
    std::string bytes(width, '\0');
    const unsigned kind = below(5);
    for (char& byte : bytes) {
        if (kind == 0)
            byte = char(below(256));
        else if (kind < 4)
            byte = char('!' + below(94));
    }
    if (kind == 2)
        bytes[below(unsigned(width))] = '\0';
    if (kind == 3)
        bytes.replace(0, 6, "\xC3\xA4\xE4\xB8\xAD!");
    return bytes;
}

unsigned firstSeed()
{
    const char* given = std::getenv("VORN_SEED");
    const unsigned seed =
        given ? unsigned(std::strtoul(given, nullptr, 10)) : std::random_device()();
    std::printf("first seed %u\n", seed);
    return seed;
}
