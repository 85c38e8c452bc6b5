#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/Application.h"
#include "platform/Settings.h"

namespace blattwart {

/// Settings that the host keeps for its next session and that the program puts to 0 for the time of some
/// work. What they were is stored before, so that they come back when host or program die meanwhile. Each
/// host has its own.
class BorrowedSettings {
  public:
    explicit BorrowedSettings(Settings& settings) : settings_(settings) {}

    /// Whose settings it is about from now on: the name of a host, without "=", ":" and ";".
    void setHost(const std::wstring& name) { host_ = name; }
    /// Has the host plot while the program waits ("BACKGROUNDPLOT" is 0). Throws when it refuses.
    void plotInForeground(const host::Document& document);
    /// Has layouts that are shown for the first time open no page setup. Throws when the host refuses.
    void hidePageSetup(const host::Application& application);
    /// Has the host ask for file names in its command line ("FILEDIA" is 0). Throws when it refuses.
    void switchFileDialogsOff(const host::Document& document);
    /// Sets "FILEDIA" to 1, whatever it was before; required so. Where the host does not take it, the next
    /// attach tries again.
    void switchFileDialogsOn(const host::Document& document);
    /// Puts back what was borrowed, in this session or one before, where the host still has what was put;
    /// file dialogs in any case. Returns false while some of it is not put back; the next attach tries again.
    bool giveBack(const host::Application& application, const host::Document& document);
    /// The same at an attach, which may come in the midst of the work.
    void giveBackForgotten(const host::Application& application, const host::Document& document);
    /// Names of what is still to be put back, for the user; "" for nothing.
    std::wstring outstanding() const;

  private:
    struct Loan {
        std::wstring host;
        std::wstring name;
        std::int32_t before = 0;
    };

    void lend(std::wstring_view name, std::int32_t before);
    /// Returns whether it was lent.
    bool forget(std::wstring_view name);
    void load();
    void store();

    Settings& settings_;
    std::wstring host_;
    bool loaded_ = false;
    bool working_ = false;
    std::vector<Loan> loans_;
};

}  // namespace blattwart
