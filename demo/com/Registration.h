#pragma once

#include <windows.h>

#include <string>

namespace demo {

/// A class that clients find by its name.
struct ServerClass {
    CLSID id;
    std::wstring progId;
};

/// Enters the class for all users; `command` starts the server. Throws RuntimeError when the registry
/// refuses.
void registerProgram(const ServerClass& server, const std::wstring& command);
/// The same for a library that is loaded into the client.
void registerLibrary(const ServerClass& server, const std::wstring& file);

/// File of the running program or of the library that contains the address.
std::wstring moduleFile(const void* addressInside = nullptr);

}  // namespace demo
