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

TEST_F(CadHost, ShowsItsDrawingsAndLayouts) {
    const host::Application application = start(twoDrawings);
    const std::vector<host::Document> documents = application.Documents().all();
    EXPECT_EQ(namesOf(documents), (std::vector<std::wstring>{L"Haus.dwg", L"Zeichnung1.dwg"}));
    EXPECT_EQ(documents[0].fullName(), L"C:\\Pläne\\Haus.dwg");
    EXPECT_EQ(documents[1].fullName(), L"\\Zeichnung1.dwg");
    EXPECT_EQ(namesOf(documents[0].Layouts().all()), (std::vector<std::wstring>{L"EG", L"Model", L"OG"}));
    EXPECT_EQ(application.ActiveDocument().Name(), L"Zeichnung1.dwg");
    documents[0].Activate();
    const host::Layout layout = documents[0].Layouts().Item(L"og");
    documents[0].putActiveLayout(layout);
    EXPECT_EQ(documents[0].ActiveLayout().Name(), L"OG");
    EXPECT_GT(layout.GetPaperSize().width, 0);
    layout.putName(L"Dach");
    EXPECT_EQ(layout.Name(), L"Dach");
    EXPECT_NE(errorOf([&] { documents[0].Layouts().Item(L"OG"); }), 0);
    HWND window = FindWindowW(hostWindow, nullptr);
    EXPECT_EQ(application.HWND(), static_cast<WindowHandle>(reinterpret_cast<std::intptr_t>(window)));
    EXPECT_TRUE(IsWindowVisible(window));
    wchar_t title[100];
    GetWindowTextW(window, title, 100);
    EXPECT_STREQ(title, L"AutoCAD - [Haus.dwg]");
}

TEST_F(CadHost, ANameCostsOneMessageOnceItIsKnown) {
    const host::Application application = start(twoDrawings);
    const std::vector<host::Document> documents = application.Documents().all();
    namesOf(documents);
    const int before = calls();
    namesOf(documents);
    EXPECT_EQ(calls() - before, 2);
    EXPECT_LE(program_->counters()["idLookups"], 2);
}

TEST_F(CadHost, WithoutADrawingTheHostSaysSo) {
    const host::Application application = start(L"/silent /do \"add C:\\Pläne|Haus.dwg\"");
    ASSERT_TRUE(program_->obey(L"close Haus.dwg"));
    EXPECT_TRUE(application.Documents().all().empty());
    EXPECT_EQ(errorOf([&] { application.ActiveDocument(); }), static_cast<std::int32_t>(0x8021003C));
}

TEST_F(CadHost, ObjectsOfAClosedDrawingAreGone) {
    const host::Application application = start(twoDrawings);
    const host::Document document = application.Documents().all().at(0);
    ASSERT_TRUE(program_->obey(L"close Haus.dwg"));
    try {
        document.Name();
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_TRUE(isGone(error));
    }
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

TEST_F(CadHost, WhatIsTypedArrivesAsItIs) {
    const host::Application application = start(twoDrawings);
    const host::Document document = application.Documents().all().at(0);
    document.SetVariable(L"FILEDIA", 0);
    document.SendCommand(L"_layout\r_copy\rEG\rErdgeschoß\r");
    EXPECT_EQ(document.Layouts().Item(L"Erdgeschoß").Name(), L"Erdgeschoß");
    const std::wstring file = temporaryFile(L"typed.txt");
    ASSERT_TRUE(program_->obey(L"typed " + file));
    std::ifstream typed{std::filesystem::path(file)};
    std::string line;
    std::getline(typed, line);
    EXPECT_EQ(line, "C:\\Pläne\\Haus.dwg\t0\t_layout\\r_copy\\rEG\\rErdgeschoß\\r");
}

TEST_F(CadHost, AnOpenDialogKeepsTheHostBusyUntilItIsAnswered) {
    const host::Application application = start(twoDrawings);
    const host::Document document = application.Documents().all().at(0);
    document.SendCommand(L"_saveas\r");
    int told = 0;
    bool cancelled = false;
    client_.busyHost.setHandlers({.busyFor = [&](std::int32_t) {
        if (++told == 3) cancelled = program_->obey(L"cancel");
    }});
    EXPECT_EQ(document.Name(), L"Haus.dwg");
    EXPECT_TRUE(cancelled);
}

TEST_F(CadHost, IsStartedForAClientAndShownWhenToldTo) {
    EXPECT_NE(errorOf([&] { client_.automation.running(hostName); }), 0);
    runProgram(CADHOST, L"/register /silent /startup 300 /do \"refuse creations 2 later\"");
    const ObjectPtr made = client_.automation.create(hostName);
    const host::Application application(made);
    HWND window = FindWindowW(hostWindow, nullptr);
    ASSERT_NE(window, nullptr);
    EXPECT_FALSE(IsWindowVisible(window));
    application.putVisible(true);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(client_.automation.running(hostName), made);

    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, process);
    PostMessageW(window, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(handle, 5000), WAIT_OBJECT_0);
    CloseHandle(handle);
    EXPECT_NE(errorOf([&] { client_.automation.running(hostName); }), 0);
}

}  // namespace
}  // namespace blattwart
