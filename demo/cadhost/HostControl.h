#pragma once

#include <string>

#include "demo/com/Server.h"
#include "demo/host/Host.h"

namespace demo {

/// Obeys commands from tests and from the command line, which do what the user does at the host:
///
/// - `add FOLDER|NAME|LAYOUT|LAYOUT...`: opens a drawing that no file holds; without FOLDER it was never
/// saved
/// - `activate NAME`, `close NAME`
/// - `typed FILE`: writes what clients typed: document, FILEDIA and text, a line each
/// - `drawings FILE`: writes what is open: document and layout, with "*" where active, a line for each sheet
/// - `profile FILE`: writes BACKGROUNDPLOT and whether new layouts ask for their page setup, a line each
///
/// and the commands of the server's Behaviour.
class HostControl {
  public:
    HostControl(Host& host, Server& server) : host_(host), server_(server) {}

    /// False when the command is not understood or cannot be carried out.
    bool obey(const std::wstring& command);

  private:
    bool obeyUser(const std::wstring& verb, const std::wstring& argument);
    bool withDocument(const std::wstring& name, void (Host::*operation)(const DocumentPtr&));
    void add(const std::wstring& description);
    void writeTyped(const std::wstring& file) const;
    void writeProfile(const std::wstring& file) const;
    void writeDrawings(const std::wstring& file) const;

    Host& host_;
    Server& server_;
};

}  // namespace demo
