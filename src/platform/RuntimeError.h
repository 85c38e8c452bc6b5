#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace blattwart {

/// Numbers of the errors that the program itself raises. Failures of the host, of ADO and of Windows carry
/// the HRESULT of the failed call instead.
namespace errorNumber {
inline constexpr std::int32_t invalidCall = 5;
inline constexpr std::int32_t overflow = 6;
inline constexpr std::int32_t typeMismatch = 13;
inline constexpr std::int32_t fileNotFound = 53;
inline constexpr std::int32_t pathNotFound = 76;
inline constexpr std::int32_t objectNotSet = 91;
inline constexpr std::int32_t duplicateKey = 457;
inline constexpr std::int32_t elementNotFound = 35601;
}  // namespace errorNumber

/// What every failing platform call, conversion and keyed lookup throws. The description is text for the
/// user.
class RuntimeError : public std::exception {
  public:
    RuntimeError(std::int32_t number, std::wstring description)
        : number_(number), description_(std::move(description)) {}

    std::int32_t number() const noexcept { return number_; }
    const std::wstring& description() const noexcept { return description_; }
    const char* what() const noexcept override { return "blattwart::RuntimeError"; }

  private:
    std::int32_t number_;
    std::wstring description_;
};

/// Runs one statement and passes over its error. Returns true when it went through.
template <class Statement>
bool ignoringErrors(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace blattwart
