#include "demo/ado/Ado.h"

#include "demo/ado/AdoErrors.h"
#include "demo/ado/Catalog.h"
#include "demo/ado/Connection.h"
#include "demo/ado/Recordset.h"

namespace demo {

blattwart::ObjectPtr makeAdo(std::wstring_view name, const AdoFaults& faults) {
    if (ado::equalIgnoringCase(name, L"ADODB.Connection")) return std::make_shared<ado::Connection>(faults);
    if (ado::equalIgnoringCase(name, L"ADODB.Recordset")) return std::make_shared<ado::Recordset>();
    if (ado::equalIgnoringCase(name, L"ADOX.Catalog")) return std::make_shared<ado::Catalog>(faults);
    ado::fail(ado::AdoError::unknownClass);
}

}  // namespace demo
