#pragma once

#include <windows.h>

#include <functional>

#include "demo/com/Exporter.h"

namespace demo {

/// What makes the objects of a class; throws RuntimeError with the HRESULT that the client is to see.
using Maker = std::function<ComPtr<IDispatch>()>;

/// A class factory for clients of COM.
ComPtr<IClassFactory> makeClassFactory(Maker maker);

}  // namespace demo
