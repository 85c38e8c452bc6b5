#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "dxf/Drawing.h"
#include "platform/Automation.h"

namespace blattwart::bench {

/// What one thing that the user does costs.
struct Cost {
    std::size_t calls = 0;    ///< of the host, those of the database not counted
    double milliseconds = 0;  ///< median of several times, the database included
    int messages = 0;         ///< on the wire, the last time; 0 when they are not counted
};

/// The program, started on the host behind `host`, with the demonstration's database written into `folder`.
class Session {
  public:
    /// `messages` tells how many have gone over the wire so far.
    Session(Automation& host, const std::filesystem::path& folder, std::function<int()> messages);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// A refresh that finds nothing changed, the library root selected.
    Cost refresh();
    /// A click on the tree's first drawing, or on the first layout of this name, until the list is filled.
    Cost clickDrawing();
    Cost clickLayout(std::wstring_view name);

  private:
    struct World;
    Cost measure(const std::function<void()>& action);

    std::unique_ptr<World> world_;
    std::function<int()> messages_;
};

/// Time of one call of the host that does nothing, milliseconds.
double measureEmptyCall(Automation& host);

void printHeading(const char* title, double emptyCall);
void printLine(const std::string& what, const Cost& cost, double emptyCall);

inline constexpr std::size_t drawingCounts[] = {1, 10, 50};
inline constexpr std::size_t layoutsEach = 20;
/// The host takes no more than 255 layouts in a drawing.
inline constexpr std::size_t layoutCounts[] = {5, 50, 250};

std::vector<std::wstring> layoutNames(std::size_t count);
/// A drawing whose layout "Blatt" holds 2,000 objects, among them 17 managed viewports and three marked
/// blocks.
demo::Drawing crowdedDrawing();

}  // namespace blattwart::bench
