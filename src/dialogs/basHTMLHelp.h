#pragma once

#include <functional>
#include <string_view>

#include "platform/Platform.h"

namespace blattwart {

/// Names of the help topics that the program opens.
namespace helpTopic {
inline constexpr std::wstring_view contents = L"Tarvix_1";
inline constexpr std::wstring_view copyLayout = L"Tarvix_20";
inline constexpr std::wstring_view renameLayouts = L"Tarvix_21";
inline constexpr std::wstring_view information = L"Tarvix_30";
inline constexpr std::wstring_view search = L"Tarvix_32";
inline constexpr std::wstring_view planList = L"Tarvix_38";
inline constexpr std::wstring_view renameByPattern = L"Tarvix_39";
inline constexpr std::wstring_view orderLayouts = L"Tarvix_40";
inline constexpr std::wstring_view carryPageSetup = L"Tarvix_41";
inline constexpr std::wstring_view makePdf = L"Tarvix_42";
inline constexpr std::wstring_view withoutTarvix = L"Tarvix_44";
}  // namespace helpTopic

/// The help file.
class basHTMLHelp {
  public:
    /// `owner` gives the window that the help is shown over.
    basHTMLHelp(Platform& platform, std::function<WindowHandle()> owner)
        : platform_(platform), owner_(std::move(owner)) {}

    /// Shows a topic, such as "Tarvix_1". Throws RuntimeError when Windows has no help viewer.
    void ShowHelpTopic(std::wstring_view topic);

  private:
    Platform& platform_;
    std::function<WindowHandle()> owner_;
};

}  // namespace blattwart
