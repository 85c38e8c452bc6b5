#pragma once

#include <optional>
#include <string>
#include <utility>

#include "demo/host/HostOptions.h"

namespace demo {

/// Whether this is how files and clients name the lack of a plot device.
bool isNoDevice(const std::wstring& device);
bool isInstalled(const HostOptions& options, const std::wstring& device);
/// Whether the device makes PDF files.
bool makesPdf(const std::wstring& device);
/// Width and height in millimetres as a canonical name tells them ("ISO_A3_(420.00_x_297.00_MM)"); none where
/// it tells none.
std::optional<std::pair<double, double>> sizeOfPaper(const std::wstring& canonicalName);

}  // namespace demo
