#pragma once

#include <functional>
#include <string>

#include "platform/Platform.h"

namespace blattwart {

/// Small things that several parts of the program share.
class basAllgemein {
  public:
    /// `hostTemplateFolder` reads the attached host's folder of templates, "" without a host; it may throw.
    basAllgemein(Platform& platform, std::function<std::wstring()> hostTemplateFolder)
        : platform_(platform), hostTemplateFolder_(std::move(hostTemplateFolder)) {}

    /// Two decimals with the user's separator, none when both are 0. Rounds half away from zero.
    std::wstring FormatZahl(double number) const;
    /// Asks whether the file is to be deleted and does so on Yes. Returns whether it was deleted; when that
    /// fails, `failure` is called with the reason.
    bool DateiLoeschen(const std::wstring& file, const std::function<void(const std::wstring&)>& failure);
    /// Returns whether the text holds a character that layout and file names may not have; the user has been
    /// told then.
    bool CheckInvalidChars(const std::wstring& text);
    /// The host's folder of templates; "" without a host or when it does not answer.
    std::wstring GetTemplateFolder() const;

  private:
    Platform& platform_;
    std::function<std::wstring()> hostTemplateFolder_;
};

}  // namespace blattwart
