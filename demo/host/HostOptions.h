#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace demo {

enum class Language { german, english };

/// What the host does with a tab number that is put.
enum class TabNumbers {
    shift,   ///< the layout moves to that place and the others make room
    store,   ///< kept as it is, even where another has it
    refuse,  ///< kept, unless another has it
};

/// What comes of plotting to a file. A file that exists already is never replaced.
enum class Plots {
    asAsked,
    notAtAll,     ///< the client is told that it failed
    nothing,      ///< the client is told that all went well
    cutOff,       ///< the file ends in the midst of the page
    asOtherKind,  ///< the file is none of the kind that its name says
    late,         ///< the file is written later, as when plotting in the background
};

/// What the host keeps in the registry for its next session.
struct Profile {
    std::int16_t backgroundPlot = 2;  ///< the system variable: 1 and 3 plot behind the client's back
    bool showsPageSetup = false;      ///< a layout that is shown for the first time asks for its page setup
};

/// What one installation of the host is like. The defaults are a German 32-bit host with VBA.
struct HostOptions {
    /// By whose names clients find it: "18" for the family, or a release ("24.3").
    std::wstring release = L"18";
    /// A 64-bit host: object ids and window handles are 64 bits wide.
    bool wideIds = false;
    /// A 64-bit host offers 32-bit ids beside them; newer ones do not.
    bool shortIds = true;
    /// Error texts, default names, command names and options.
    Language language = Language::german;
    std::wstring version = L"18.1s (LMS Tech)";
    std::wstring programFolder = L"C:\\Programme\\AutoCAD 2011";
    /// As the user set it up, possibly with a backslash at its end.
    std::wstring templateFolder = L"C:\\Vorlagen";
    /// What the layout of model space is called.
    std::wstring modelName = L"Model";
    bool vbaInstalled = true;
    /// Comes up with a start tab and no drawing.
    bool startTab = false;
    TabNumbers tabNumbers = TabNumbers::shift;
    /// A layout's own name in another case counts as taken.
    bool caseIsTaken = false;
    /// A layout that takes over another one's plot settings is called after it, too.
    bool copyTakesName = false;
    /// The plot devices that are installed.
    std::vector<std::wstring> plotDevices = {L"DWG To PDF.pc3"};
    /// The same for all instances that are made with these options.
    std::shared_ptr<Profile> profile = std::make_shared<Profile>();
    Plots plots = Plots::asAsked;
    /// How long a plot takes.
    std::chrono::milliseconds plotTime{0};
    /// Writes a plotted file; false where that fails. Without it the file is written to the disk.
    std::function<bool(const std::wstring& path, const std::string& bytes)> writePlot{};
};

/// The options of a release ("24.3") as it is delivered; those of "18" are the defaults. What does not depend
/// on the release is as in `base`.
HostOptions ofRelease(const std::wstring& release, HostOptions base = {});

/// The program names under which a host of the release is registered, the most particular first.
std::vector<std::wstring> programNames(const std::wstring& release);

}  // namespace demo
