#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "com/Client.h"
#include "host/Application.h"

namespace blattwart {
namespace {

constexpr const wchar_t* hostName = L"AutoCAD.Application.18";
constexpr const wchar_t* hostWindow = L"CadHostWindow";
const std::wstring twoDrawings =
    L"/silent /do \"add C:\\Pläne|Haus.dwg|EG|OG\" /do \"add |Zeichnung1.dwg|Blatt 1\" ";

/// The host as a process of its own, and a client of it.
class CadHost : public testing::Test {
  protected:
    CadHost() { runProgram(CADHOST, L"/register /silent"); }

    host::Application start(const std::wstring& options) {
        program_.emplace(CADHOST, options, hostWindow);
        object_ = attach(client_, hostName);
        return host::Application(object_);
    }
    int calls() { return program_->counters()["calls"]; }

    Client client_;
    std::optional<RunningProgram> program_;
    ObjectPtr object_;
};

template <class Face>
std::vector<std::wstring> namesOf(const std::vector<Face>& faces) {
    std::vector<std::wstring> names;
    for (const Face& face : faces) names.push_back(face.Name());
    return names;
}

TEST_F(CadHost, ExtendedDataAndIdsCrossTheBorderOnBothKindsOfHost) {
    for (const wchar_t* kind : {L"", L"/wide "}) {
        const host::Application application = start(kind + twoDrawings);
        const host::Document document = application.Documents().all().at(0);
        const std::int32_t id = document.Layouts().Item(L"EG").ObjectID();
        const host::Entity entity = document.ObjectIdToObject(id);
        EXPECT_EQ(entity.ObjectName(), L"AcDbLayout") << kind;
        EXPECT_TRUE(entity.GetXData(L"Tarvix").types.empty());
        document.registerApplication(L"Tarvix");
        const host::XData data{{1001, 1000, 1070, 1071, 1040},
                               {L"Tarvix", L"größe", std::int16_t{3}, std::int32_t{70000}, 0.5}};
        entity.SetXData(data);
        const host::XData read = entity.GetXData(L"Tarvix");
        EXPECT_EQ(read.types, data.types);
        EXPECT_EQ(read.values, data.values);
        EXPECT_EQ(object_->get({L"Application", L"HWND"}).is<std::int64_t>(), *kind != 0);
        program_.reset();
    }
}

}  // namespace
}  // namespace blattwart
