#pragma once

#include <cstdint>
#include <string>

#include "host/Layout.h"
#include "platform/Locale.h"

namespace blattwart {

/// Orientation for a plot rotation in quarter turns; "" outside 0 to 3.
std::wstring orientationText(std::int32_t plotRotation);
/// Plot area for the host's plot type; "" outside 0 to 5.
std::wstring plotAreaText(std::int32_t plotType);
/// Name of the plot style table, "Kein" when there is none.
std::wstring plotStyleText(const std::wstring& styleSheet);
/// Both sides with two decimals, the larger one first: "420,00 x 297,00 mm".
std::wstring paperSizeText(const host::PaperSize& size, const Locale& locale);
/// The readable name of the layout's paper, the device's own name where that is not to be had, "" without an
/// answer. Two round trips.
std::wstring paperFormat(const host::Layout& layout);

}  // namespace blattwart
