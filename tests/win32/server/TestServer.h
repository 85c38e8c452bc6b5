#pragma once

namespace demo {

/// Window class and automation name of the test server.
inline constexpr const wchar_t* testServerWindow = L"BlattwartTestServer";
inline constexpr const wchar_t* testServerName = L"Blattwart.TestServer";

}  // namespace demo
