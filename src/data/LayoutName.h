#pragma once

#include <string>

#include "platform/Locale.h"

namespace blattwart {

/// What speaks against a layout's name by itself, in the host's eyes and without a capital, as "leer"; "" for
/// nothing. `modelName` is what the host calls the layout of model space, beside what it may always be
/// called.
std::wstring layoutNameFault(const std::wstring& name, const std::wstring& modelName, const Locale& locale);

}  // namespace blattwart
