#pragma once

#include <string>

#include "platform/Value.h"

namespace demo {

class Host;
class OpenDocument;

/// System variables as clients read and set them; names without regard to case. A value must be of the
/// variable's own type. Throws variableError for unknown names, values that do not fit and variables that are
/// read-only.
blattwart::Value getVariable(Host& host, OpenDocument& document, const std::wstring& name);
void setVariable(Host& host, OpenDocument& document, const std::wstring& name, const blattwart::Value& value);

}  // namespace demo
