// Records as bytes at the offsets of the stored format, written apart from the library's structure.
#ifndef TESTS_WIZARD_RECORD_BYTES_H
#define TESTS_WIZARD_RECORD_BYTES_H

#include <array>
#include <cstring>
#include <string>

#include <napi.h>

class RecordBytes
{
public:
    RecordBytes() { bytes.fill(0); }
    explicit RecordBytes(const NetworkProfile& record)
    {
        std::memcpy(bytes.data(), &record, sizeof record);
    }

    RecordBytes& text(size_t offset, const std::string& value)
    {
        std::memcpy(bytes.data() + offset, value.data(), value.size());
        return *this;
    }
    RecordBytes& byte(size_t offset, unsigned value) { return number(offset, 1, value); }
    RecordBytes& half(size_t offset, unsigned value) { return number(offset, 2, value); }
    RecordBytes& word(size_t offset, unsigned value) { return number(offset, 4, value); }
    // Every byte of a region.
    RecordBytes& fill(size_t offset, size_t width, unsigned value)
    {
        std::memset(bytes.data() + offset, static_cast<int>(value), width);
        return *this;
    }

    std::string part(size_t offset, size_t width) const
    {
        return std::string(reinterpret_cast<const char*>(bytes.data()) + offset, width);
    }
    unsigned read(size_t offset, size_t width) const
    {
        unsigned value = 0;
        for (size_t i = width; i-- > 0;)
            value = value << 8 | bytes[offset + i];
        return value;
    }

    NetworkProfile record() const
    {
        NetworkProfile result;
        std::memcpy(&result, bytes.data(), sizeof result);
        return result;
    }

    // The first byte that differs, or "the same".
    std::string difference(const RecordBytes& other) const
    {
        for (size_t i = 0; i < bytes.size(); ++i) {
            if (bytes[i] != other.bytes[i])
                return "byte " + std::to_string(i) + ": " + std::to_string(bytes[i]) + " and " +
                       std::to_string(other.bytes[i]);
        }
        return "the same";
    }

private:
    RecordBytes& number(size_t offset, size_t width, unsigned value)
    {
        for (size_t i = 0; i < width; ++i)
            bytes[offset + i] = static_cast<unsigned char>(value >> (8 * i));
        return *this;
    }

    std::array<unsigned char, 1168> bytes;
};

#endif
