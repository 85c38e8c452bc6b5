#pragma once

#include "demo/dxf/Group.h"
#include "demo/host/HostOptions.h"
#include "platform/Value.h"

namespace demo {

/// Extended data as clients get it: group codes, and the values of the types that belong to them.
blattwart::Value xdataTypes(const XData& data);
blattwart::Value xdataValues(const XData& data);

/// Extended data out of a client's arrays. Throws invalidInput when the arrays do not match, do not begin
/// with an application's name or hold a value that does not fit its code.
XData xdataOf(const blattwart::ShortArray& types, const blattwart::ValueArray& values, Language language);

}  // namespace demo
