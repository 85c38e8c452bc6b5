#pragma once

#include "demo/host/HostOptions.h"
#include "platform/RuntimeError.h"

/// Failures as the host reports them: 0x8020xxxx come from the drawing database, 0x8021xxxx from the
/// application, the others from the automation itself.
namespace demo::hostError {

inline constexpr std::int32_t code(std::uint32_t bits) {
    return static_cast<std::int32_t>(bits);
}

inline constexpr std::int32_t invalidInput = code(0x80200003);
inline constexpr std::int32_t keyNotFound = code(0x80200014);
inline constexpr std::int32_t duplicateKey = code(0x80200015);
inline constexpr std::int32_t objectErased = code(0x8020004C);
inline constexpr std::int32_t foreignDrawing = code(0x80200157);
inline constexpr std::int32_t fileError = code(0x80210018);
inline constexpr std::int32_t variableError = code(0x80210029);
inline constexpr std::int32_t noDocument = code(0x8021003C);
inline constexpr std::int32_t macroNotFound = code(0x80210047);
inline constexpr std::int32_t vbaMissing = code(0x80210048);

inline constexpr std::int32_t notRunning = code(0x800401E3);
inline constexpr std::int32_t notInstalled = code(0x800401F3);
inline constexpr std::int32_t cannotStart = code(0x80080005);

inline constexpr std::int32_t memberNotFound = code(0x80020003);
inline constexpr std::int32_t typeMismatch = code(0x80020005);
inline constexpr std::int32_t badParameterCount = code(0x8002000E);

/// The failure with the host's text for it, which is empty for foreignDrawing.
blattwart::RuntimeError make(std::int32_t number, Language language);
/// The failure that an operation on the drawing data throws, with the host's number for it; others stay as
/// they are.
blattwart::RuntimeError fromDrawing(const blattwart::RuntimeError& error);

}  // namespace demo::hostError
