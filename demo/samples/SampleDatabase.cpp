#include "demo/samples/SampleDatabase.h"

#include "data/NewDatabase.h"
#include "demo/ado/Ado.h"
#include "SampleRows.h"

namespace demo {

using blattwart::Value;

std::wstring_view sampleRows() {
    return rowsOfTheDemonstration;
}

void makeDatabase(const std::wstring& file, std::wstring_view statements) {
    blattwart::writeNewDatabase(*makeAdo(L"ADOX.Catalog"), file);
    const auto connection = makeAdo(L"ADODB.Connection");
    connection->call({L"Connection", L"Open"},
                     {Value(L"Provider=Microsoft.Jet.OLEDB.4.0;Data Source=\"" + file + L"\"")});
    for (auto end = statements.find(L';'); end != std::wstring_view::npos; end = statements.find(L';')) {
        connection->call({L"Connection", L"Execute"}, {Value(statements.substr(0, end))});
        statements.remove_prefix(end + 1);
    }
}

}  // namespace demo
