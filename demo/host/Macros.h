#pragma once

#include <string>

namespace demo {

class Host;

/// The host's macro language with the one project it knows: "Tarvix.dvb", whose module "Programm" holds
/// TX_Starten, TX_Layout (makes a new layout in the active document) and TX_DelLayout (deletes the active
/// layout of the active document). What goes wrong inside a macro is the macro's own matter.
class Macros {
  public:
    explicit Macros(Host& host) : host_(host) {}

    /// Throws when the file is not there or is no project, or when VBA is missing; loading again is allowed.
    void load(const std::wstring& path);
    bool loaded() const { return loaded_; }
    /// `[Project.][Module.]Macro`. Throws when no loaded project has the macro.
    void run(const std::wstring& qualified);

  private:
    void requireVba() const;

    Host& host_;
    bool loaded_ = false;
};

}  // namespace demo
