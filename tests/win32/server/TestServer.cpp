#include "TestServer.h"

#include <windows.h>

#include <shellapi.h>

#include <functional>
#include <map>

#include "demo/com/Server.h"
#include "demo/com/ServerWindow.h"
#include "platform/RuntimeError.h"

namespace demo {

using blattwart::Argument;
using blattwart::ObjectPtr;
using blattwart::RuntimeError;
using blattwart::Value;

namespace {

using Arguments = std::span<const Argument>;

const ServerClass testClass{{0x3b1f0a52, 0x6a0d, 0x4c6e, {0x9d, 0x0b, 0x5c, 0x11, 0x7a, 0x2e, 0x90, 0x01}},
                            testServerName};

/// An object whose members are functions.
class Scripted : public DispatchObject {
  public:
    struct Entry {
        std::int32_t id;
        std::function<Value(Access, Arguments)> run;
    };

    std::optional<std::int32_t> memberId(std::wstring_view name) const override {
        const auto found = members.find(std::wstring(name));
        return found == members.end() ? std::nullopt : std::optional(found->second.id);
    }
    Value invoke(std::int32_t id, Access access, Arguments arguments) override {
        for (const auto& [name, entry] : members) {
            if (entry.id == id) return entry.run(access, arguments);
        }
        throw RuntimeError(DISP_E_MEMBERNOTFOUND, L"");
    }
    std::vector<ObjectPtr> allElements() override {
        if (!enumerable) throw RuntimeError(DISP_E_MEMBERNOTFOUND, L"");
        return elements;
    }

    std::map<std::wstring, Entry> members;
    std::vector<ObjectPtr> elements;
    bool enumerable = false;
};

std::int32_t numberIn(const Argument& argument) {
    return *argument.value().as<std::int32_t>();
}

/// Its Name has another id than that of the application.
ObjectPtr makeChild(const std::wstring& name, std::int32_t id = 2) {
    auto child = std::make_shared<Scripted>();
    child->members[L"Name"] = {id, [name](Access, Arguments) { return name; }};
    return child;
}

ObjectPtr makeCollection(std::int32_t count, bool enumerable) {
    auto collection = std::make_shared<Scripted>();
    for (std::int32_t i = 0; i < count; ++i)
        collection->elements.push_back(makeChild(L"Kind " + std::to_wstring(i)));
    collection->enumerable = enumerable;
    auto* self = collection.get();
    self->members[L"Count"] = {3, [count](Access, Arguments) { return count; }};
    self->members[L"Item"] = {0, [self](Access, Arguments arguments) {
                                  return self->elements.at(static_cast<std::size_t>(numberIn(arguments[0])));
                              }};
    return collection;
}

ObjectPtr makeApplication() {
    auto application = std::make_shared<Scripted>();
    auto& members = application->members;
    members[L"Name"] = {1, [](Access, Arguments) { return L"Prüfling"; }};
    // The number of times that it was carried out.
    members[L"Tick"] = {2, [ticks = 0](Access, Arguments) mutable { return std::int32_t{++ticks}; }};
    members[L"Echo"] = {3, [](Access, Arguments arguments) { return arguments[0].value(); }};
    members[L"Fail"] = {4, [](Access, Arguments arguments) -> Value {
                            throw RuntimeError(numberIn(arguments[0]),
                                               *arguments[1].value().as<std::wstring>());
                        }};
    members[L"Kept"] = {5, [kept = Value()](Access access, Arguments arguments) mutable {
                            if (access == Access::put) kept = arguments[0].value();
                            return kept;
                        }};
    // Changes the first two variables and leaves the third alone.
    members[L"Fill"] = {6, [](Access, Arguments arguments) {
                            arguments[0].assign(420.5);
                            arguments[1].assign(blattwart::ShortArray{1001, 1000});
                            return Value(arguments.size() == 3 && arguments[2].byReference());
                        }};
    members[L"Children"] = {
        7, [](Access, Arguments arguments) { return makeCollection(numberIn(arguments[0]), true); }};
    members[L"Plain"] = {
        8, [](Access, Arguments arguments) { return makeCollection(numberIn(arguments[0]), false); }};
    // Its Name has an id that is nothing among the other children.
    members[L"Odd"] = {9, [](Access, Arguments) { return makeChild(L"Sonderling", 9); }};
    return application;
}

void serve(const std::vector<std::wstring>& commands) {
    const Apartment apartment;
    Server server({testClass}, L"Prüfling");
    ServerWindow window(testServerWindow, [&](const std::wstring& command) { return server.obey(command); });
    for (const std::wstring& command : commands) server.obey(command);
    const ObjectPtr application = makeApplication();
    server.offer(application);
    server.publish(application);
    window.run();
}

}  // namespace

}  // namespace demo

/// testserver /register [COMMANDS...] | [COMMANDS...]
int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> commands(words + 1, words + count);
    LocalFree(words);
    const std::wstring task = commands.empty() ? L"" : commands.front();
    if (task == L"/register") {
        std::wstring command = L"\"" + demo::moduleFile() + L"\"";
        for (std::size_t i = 1; i < commands.size(); ++i) command += L" \"" + commands[i] + L"\"";
        demo::registerProgram(demo::testClass, command);
    } else {
        demo::serve(commands);
    }
    return 0;
}
