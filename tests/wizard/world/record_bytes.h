// Records as bytes at the offsets of the stored format, written apart from the library's
// structure.
#ifndef TESTS_WIZARD_RECORD_BYTES_H
#define TESTS_WIZARD_RECORD_BYTES_H

#include <array>
#include <cstring>
#include <string>

#include <napi.h>

class RecordBytes
{
public:
    RecordBytes() { m_bytes.fill(0); }
    explicit RecordBytes(const NetworkProfile& record)
    {
        std::memcpy(m_bytes.data(), &record, sizeof record);
    }

    RecordBytes& text(std::size_t offset, const std::string& value)
    {
        std::memcpy(m_bytes.data() + offset, value.data(), value.size());
        return *this;
    }
    RecordBytes& byte(std::size_t offset, unsigned value) { return number(offset, 1, value); }
    RecordBytes& half(std::size_t offset, unsigned value) { return number(offset, 2, value); }
    RecordBytes& word(std::size_t offset, unsigned value) { return number(offset, 4, value); }
    // Every byte of a region.
    RecordBytes& fill(std::size_t offset, std::size_t width, unsigned value)
    {
        std::memset(m_bytes.data() + offset, static_cast<int>(value), width);
        return *this;
    }

    std::string part(std::size_t offset, std::size_t width) const
    {
        return std::string(reinterpret_cast<const char*>(m_bytes.data()) + offset, width);
    }
    unsigned read(std::size_t offset, std::size_t width) const
    {
        unsigned value = 0;
        for (std::size_t i = width; i-- > 0;)
            value = value << 8 | m_bytes[offset + i];
        return value;
    }

    NetworkProfile record() const
    {
        NetworkProfile result;
        std::memcpy(&result, m_bytes.data(), sizeof result);
        return result;
    }

    // The first byte that differs, or "the same".
    std::string difference(const RecordBytes& other) const
    {
        for (std::size_t i = 0; i < m_bytes.size(); ++i) {
            if (m_bytes[i] != other.m_bytes[i])
                return "byte " + std::to_string(i) + ": " + std::to_string(m_bytes[i]) + " and " +
                       std::to_string(other.m_bytes[i]);
        }
        return "the same";
    }

private:
    RecordBytes& number(std::size_t offset, std::size_t width, unsigned value)
    {
        for (std::size_t i = 0; i < width; ++i)
            m_bytes[offset + i] = static_cast<unsigned char>(value >> (8 * i));
        return *this;
    }

    std::array<unsigned char, 1168> m_bytes;
};

#endif
