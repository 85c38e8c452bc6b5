#pragma once

#include <string>

namespace blattwart::bench {

/// Milliseconds that a plain script takes which reads the same from the running host, late bound: "start",
/// "refresh" or "click".
double runScript(const std::wstring& what);

}  // namespace blattwart::bench
