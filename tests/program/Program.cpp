#include "Program.h"

#include <algorithm>
#include <atomic>

#include <unistd.h>

namespace blattwart::test {

namespace {

std::filesystem::path freshPath() {
    static std::atomic<int> number = 0;
    return std::filesystem::temp_directory_path() /
           ("blattwart-" + std::to_string(getpid()) + "-" + std::to_string(++number));
}

}  // namespace

TemporaryFolder::TemporaryFolder() : path_(freshPath()) {
    std::filesystem::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

Program::Program(demo::HostOptions options)
    : demo(std::move(options), demo::Disk(folder.path())),
      calls(demo),
      world(calls),
      presenter(world.desktop),
      main(std::make_unique<basMain>(world.platform, presenter)) {
    demo.setOtherPrograms([this](std::wstring_view name) { return demo::makeAdo(name, adoFaults); });
    demo.start();
    useDatabase(demo::sampleRows());
    world.files.add(L"C:\\Vorlagen\\Plan A3.dwt");
    world.files.add(L"C:\\Vorlagen\\Rahmen.dwg");
    world.files.add(L"C:\\Vorlagen\\Skizze.dwf");
}

void Program::useDatabase(std::wstring_view statements) {
    const std::filesystem::path file = folder.path() / "Tarvix.mdb";
    std::filesystem::remove(file);
    demo::makeDatabase(file.wstring(), statements);
    world.registry.storeText(RegistryRoot::localMachine, registryKey, "DefDB", file.string());
}

void Program::useHost(demo::HostOptions options) {
    demo.end(release);
    release = options.release;
    if (release != L"18") world.installations.install(release, L"AutoCAD " + release + L" – Deutsch");
    demo.install(std::move(options));
}

bool Program::startAgain() {
    main = std::make_unique<basMain>(world.platform, presenter);
    return start();
}

void Program::onEveryKindOfHost(const std::function<void()>& test) {
    for (const auto& [wide, shortToo] : {std::pair(false, false), {true, true}, {true, false}}) {
        demo.end();
        main = std::make_unique<basMain>(world.platform, presenter);
        demo::HostOptions options;
        options.wideIds = wide;
        options.shortIds = shortToo;
        demo.start().options() = options;
        test();
    }
}

std::wstring Program::layoutsOf(const demo::Drawing& drawing) {
    std::wstring names;
    for (const demo::Layout* layout : drawing.layouts())
        if (!layout->isModel()) names += (names.empty() ? L"" : L",") + layout->name();
    return names;
}

std::size_t hostCalls(const demo::CallRecorder& calls) {
    return static_cast<std::size_t>(std::ranges::count_if(calls.calls(), [](const auto& call) {
        return call.ofHost && call.kind != demo::RecordedCall::Kind::running;
    }));
}

}  // namespace blattwart::test
