#include <gtest/gtest.h>

#include "com/Client.h"
#include "host/Application.h"

namespace blattwart {
namespace {

constexpr const wchar_t* hostName = L"AutoCAD.Application.18";
constexpr const wchar_t* hostWindow = L"CadHostWindow";

TEST(CadHost, ExtendedDataAndIdsCrossTheBorderOnBothKindsOfHost) {
    Client client;
    runProgram(CADHOST, L"/register /silent");
    for (const std::wstring kind : {L"", L"/wide "}) {
        const RunningProgram program(CADHOST, kind + L"/silent /do \"add C:\\Pläne|Haus.dwg|EG\"",
                                     hostWindow);
        const ObjectPtr object = attach(client, hostName);
        const host::Application application(object);
        const host::Document document = application.Documents().all().at(0);
        const std::int32_t id = document.Layouts().Item(L"EG").ObjectID();
        const host::Entity entity = document.ObjectIdToObject(id);
        EXPECT_EQ(entity.ObjectName(), L"AcDbLayout");
        EXPECT_TRUE(entity.GetXData(L"Tarvix").types.empty());
        document.registerApplication(L"Tarvix");
        const host::XData data{{1001, 1000, 1070, 1071, 1040},
                               {L"Tarvix", L"größe", std::int16_t{3}, std::int32_t{70000}, 0.5}};
        entity.SetXData(data);
        const host::XData read = entity.GetXData(L"Tarvix");
        EXPECT_EQ(read.types, data.types);
        EXPECT_EQ(read.values, data.values);
        EXPECT_EQ(object->get({L"Application", L"HWND"}).is<std::int64_t>(), !kind.empty());
    }
}

}  // namespace
}  // namespace blattwart
