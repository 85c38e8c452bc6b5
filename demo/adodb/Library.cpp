#include <windows.h>

#include <olectl.h>

#include <array>

#include "demo/ado/Ado.h"
#include "demo/com/ClassFactory.h"
#include "demo/com/Registration.h"
#include "platform/RuntimeError.h"

/// The ADO stand-in under the names of the real objects, for clients in whose process it is loaded.
namespace {

using namespace demo;

const std::array<ServerClass, 3> adoClasses{
    {{{0x8e0d7b31, 0x4c8f, 0x4c55, {0xa2, 0x61, 0x0f, 0x63, 0x5d, 0x7b, 0x2c, 0x01}}, L"ADODB.Connection"},
     {{0x8e0d7b31, 0x4c8f, 0x4c55, {0xa2, 0x61, 0x0f, 0x63, 0x5d, 0x7b, 0x2c, 0x02}}, L"ADODB.Recordset"},
     {{0x8e0d7b31, 0x4c8f, 0x4c55, {0xa2, 0x61, 0x0f, 0x63, 0x5d, 0x7b, 0x2c, 0x03}}, L"ADOX.Catalog"}}};

/// Connections and recordsets refer to each other, so that one exporter must know them all. It lives as long
/// as the library, which is never unloaded.
const std::shared_ptr<Exporter>& exporter() {
    static const auto instance = std::make_shared<Exporter>(L"Microsoft JET Database Engine");
    return instance;
}

HRESULT getClass(const ServerClass& server, REFIID interfaceId, void** object) {
    const auto factory =
        makeClassFactory([&server] { return exporter()->toDispatch(makeAdo(server.progId)); });
    return factory->QueryInterface(interfaceId, object);
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    for (const ServerClass& server : adoClasses) {
        if (server.id == classId) return getClass(server, interfaceId, object);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return S_FALSE;
}

STDAPI DllRegisterServer() {
    try {
        const std::wstring file = moduleFile(reinterpret_cast<const void*>(&DllRegisterServer));
        for (const ServerClass& server : adoClasses) registerLibrary(server, file);
        return S_OK;
    } catch (const blattwart::RuntimeError& error) {
        return error.number();
    }
}
