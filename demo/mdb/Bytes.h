#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace demo::mdb {

/// Bytes of the file under construction; all numbers are little-endian unless a name says otherwise.
class Bytes {
  public:
    Bytes() = default;
    explicit Bytes(std::size_t size) : content_(size) {}

    void add8(std::uint32_t number) { content_.push_back(static_cast<std::uint8_t>(number)); }
    void add16(std::uint32_t number) { addNumber(number, 2); }
    void add24BigEndian(std::uint32_t number);
    void add32(std::uint32_t number) { addNumber(number, 4); }
    void add32BigEndian(std::uint32_t number);
    void add64(std::uint64_t number) { addNumber(number, 8); }
    void addFloat(float number);
    void addDouble(double number);
    void addZeros(std::size_t count) { content_.resize(content_.size() + count); }
    void add(const Bytes& other);
    /// Adds the text in UTF-16.
    void addText(std::wstring_view text);
    /// Adds the length in bytes in 16 bits, then the text in UTF-16.
    void addName(std::wstring_view name);

    void set8(std::size_t offset, std::uint32_t number) {
        content_.at(offset) = static_cast<std::uint8_t>(number);
    }
    void set16(std::size_t offset, std::uint32_t number);
    void set32(std::size_t offset, std::uint32_t number);
    void set(std::size_t offset, const Bytes& other);
    void setBit(std::size_t offset, std::size_t bit);

    std::size_t size() const { return content_.size(); }
    std::span<const std::uint8_t> view() const { return content_; }
    std::span<std::uint8_t> view(std::size_t offset, std::size_t count) {
        return std::span(content_).subspan(offset, count);
    }

  private:
    void addNumber(std::uint64_t number, std::size_t size);

    std::vector<std::uint8_t> content_;
};

}  // namespace demo::mdb
