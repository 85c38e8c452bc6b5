#pragma once

#include <memory>

#include "demo/host/Host.h"

namespace demo {

/// One run of the command LAYOUT: asks for an option and what that needs. A name or file that will not do
/// ends the command with a line in the history.
class LayoutCommand : public std::enable_shared_from_this<LayoutCommand> {
  public:
    LayoutCommand(Host& host, OpenDocument& document) : host_(host), document_(document) {}

    void start();

    struct Option;

  private:
    using Answer = void (LayoutCommand::*)(const std::wstring& answer);

    void chooseOption(const std::wstring& typed);
    void copy();
    void copySource(const std::wstring& name);
    void copyTarget(const std::wstring& name);
    void remove();
    void removeNamed(const std::wstring& name);
    void add();
    void addNamed(const std::wstring& name);
    void rename();
    void renameSource(const std::wstring& name);
    void renameTarget(const std::wstring& name);
    void set();
    void setNamed(const std::wstring& name);
    void list();

    void insert();
    void insertFrom(const std::wstring& file);
    void insertNamed(const std::wstring& names);
    void saveAs();
    void saveSource(const std::wstring& name);
    void saveTarget(const std::wstring& file);
    void saveConfirmed(const std::wstring& answer);
    void writeTemplate();

    void ask(PromptKind kind, const wchar_t* german, const wchar_t* english, const std::wstring& fallback,
             Answer next);
    /// Asks for a file: in a dialog, or on the command line when FILEDIA is 0.
    void askFile(DialogKind kind, const wchar_t* german, const wchar_t* english, Answer next);
    void askByDialog(DialogKind kind, const std::wstring& text, const std::wstring& proposal, Answer next);
    const wchar_t* inLanguage(const wchar_t* german, const wchar_t* english) const;
    std::wstring currentName() const;
    Layout& named(const std::wstring& name) const;

    Host& host_;
    OpenDocument& document_;
    std::wstring source_;
    std::wstring file_;
    std::optional<Drawing> template_;
};

}  // namespace demo
