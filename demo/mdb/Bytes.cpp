#include "demo/mdb/Bytes.h"

#include <algorithm>
#include <bit>

namespace demo::mdb {

void Bytes::addNumber(std::uint64_t number, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) add8(static_cast<std::uint32_t>(number >> (8 * i) & 0xFF));
}

void Bytes::add24BigEndian(std::uint32_t number) {
    for (int shift = 16; shift >= 0; shift -= 8) add8(number >> shift);
}

void Bytes::add32BigEndian(std::uint32_t number) {
    add8(number >> 24);
    add24BigEndian(number);
}

void Bytes::addFloat(float number) {
    add32(std::bit_cast<std::uint32_t>(number));
}

void Bytes::addDouble(double number) {
    add64(std::bit_cast<std::uint64_t>(number));
}

void Bytes::add(const Bytes& other) {
    content_.insert(content_.end(), other.content_.begin(), other.content_.end());
}

void Bytes::addText(std::wstring_view text) {
    for (const wchar_t character : text) {
        const auto code = static_cast<char32_t>(character);
        if (code < 0x10000) {
            add16(code);
        } else {
            add16(0xD800 + ((code - 0x10000) >> 10));
            add16(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
    }
}

void Bytes::addName(std::wstring_view name) {
    Bytes text;
    text.addText(name);
    add16(static_cast<std::uint32_t>(text.size()));
    add(text);
}

void Bytes::set16(std::size_t offset, std::uint32_t number) {
    set8(offset, number);
    set8(offset + 1, number >> 8);
}

void Bytes::set32(std::size_t offset, std::uint32_t number) {
    set16(offset, number);
    set16(offset + 2, number >> 16);
}

void Bytes::set(std::size_t offset, const Bytes& other) {
    std::ranges::copy(other.content_, view(offset, other.size()).begin());
}

void Bytes::setBit(std::size_t offset, std::size_t bit) {
    auto& byte = content_.at(offset + bit / 8);
    byte = static_cast<std::uint8_t>(byte | 1U << (bit % 8));
}

}  // namespace demo::mdb
