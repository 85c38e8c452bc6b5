#include <gtest/gtest.h>

#include <filesystem>

#include "com/Client.h"

namespace blattwart {
namespace {

/// ADO as the program finds it: a registered library.
class AdoLibrary : public testing::Test {
  protected:
    AdoLibrary() {
        HMODULE library = LoadLibraryW(windowsPath(ADO_LIBRARY).c_str());
        const auto enter =
            reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(GetProcAddress(library, "DllRegisterServer"));
        EXPECT_EQ(enter(), S_OK);
        std::filesystem::remove(file_);
        EXPECT_EQ(runProgram(DATABASE_MAKER, L"/still \"" + file_ + L"\""), 0U);
    }

    ObjectPtr connect(const std::wstring& file) {
        ObjectPtr connection = client_.automation.create(L"ADODB.Connection");
        connection->put({L"Connection", L"CursorLocation"}, std::int32_t{3});
        connection->call({L"Connection", L"Open"},
                         {Value(L"PROVIDER=Microsoft.Jet.OLEDB.4.0;Data Source=" + file + L";"), Value(L""),
                          Value(L""), Value(std::int32_t{-1})});
        return connection;
    }
    ObjectPtr open(const ObjectPtr& connection, const wchar_t* query) {
        ObjectPtr recordset = client_.automation.create(L"ADODB.Recordset");
        recordset->call({L"Recordset", L"Open"}, {Value(query), Value(connection), Value(std::int32_t{3}),
                                                  Value(std::int32_t{3}), Value(std::int32_t{-1})});
        return recordset;
    }
    Value cell(const ObjectPtr& recordset, const wchar_t* name) {
        const Value fields = recordset->get({L"Recordset", L"Fields"});
        const Value field = (*fields.as<ObjectPtr>())->call({L"Fields", L"Item"}, {Value(name)});
        return (*field.as<ObjectPtr>())->get({L"Field", L"Value"});
    }

    Client client_{std::chrono::milliseconds(1)};
    const std::wstring file_ = temporaryFile(L"Tarvix.mdb");
};

TEST_F(AdoLibrary, ReadsWhatTheProgramForItHasMade) {
    const ObjectPtr connection = connect(file_);
    connection->call({L"Connection", L"Execute"}, {Value(L"UPDATE Typen SET typ = 'Straße für 5 €'")});
    const ObjectPtr rows = open(connection, L"select * from Typen");
    EXPECT_EQ(cell(rows, L"TypenId"), Value(1));
    EXPECT_EQ(cell(rows, L"typ"), Value(L"Straße für 5 €"));
    EXPECT_TRUE(cell(rows, L"Verzeichnis").isNull());
    EXPECT_EQ(cell(rows, L"Info"), Value(L"Zeichnungsvorlagen"));
}

TEST_F(AdoLibrary, FailsWithTextsOfItsOwn) {
    try {
        connect(L"C:\\fehlt.mdb");
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.description().find(L"Automatisierungsfehler"), std::wstring::npos);
    }
}

TEST_F(AdoLibrary, IsOpenAlsoWhenTheUserGaveUpTheHost) {
    const Gate::Event event(client_.gate);
    client_.gate.giveUp();
    EXPECT_EQ(client_.hostCaller.call([] { return S_OK; }), RPC_E_CALL_REJECTED);
    EXPECT_FALSE(cell(open(connect(file_), L"select * from Typen"), L"typ").isNull());
}

}  // namespace
}  // namespace blattwart
