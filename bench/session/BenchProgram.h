#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Automation.h"

namespace blattwart::bench {

/// What one thing that the user does costs.
struct Cost {
    std::size_t calls = 0;    ///< of the host, those of the database not counted
    double milliseconds = 0;  ///< without those of the database
    int messages = 0;         ///< on the wire; 0 when they are not counted
    double emptyCall = 1;     ///< milliseconds of one that does nothing, before and after; 1 natively
};

/// The one in the middle by its time in empty calls, as the machine is quicker and slower for seconds.
Cost median(std::vector<Cost> costs);

/// The way to a host in another process.
struct Wire {
    std::function<int()> messages;      ///< that have gone over it so far
    std::function<double()> emptyCall;  ///< time of a call that does nothing, milliseconds
};

/// The program on the host behind `host`, with the demonstration's database written into `folder`.
class BenchProgram {
  public:
    BenchProgram(Automation& host, const std::filesystem::path& folder,
                 Wire wire = {.messages = [] { return 0; }, .emptyCall = [] { return 1.0; }});
    ~BenchProgram();
    BenchProgram(const BenchProgram&) = delete;
    BenchProgram& operator=(const BenchProgram&) = delete;

    /// Starts the program: it attaches, fills the tree and the list of the active drawing. First of all,
    /// once.
    Cost start();
    /// A refresh that finds nothing changed, the library root selected.
    Cost refresh();
    /// The same as the user asks for it, by F5, and as he gets it when he comes back from another program.
    Cost pressF5();
    Cost comeBack();
    /// A click on the tree's first drawing, or on the first layout of this name, until the list is filled.
    Cost clickDrawing();
    Cost clickLayout(std::wstring_view name);
    /// The plan list opened, which reads everything, and closed.
    Cost openPlanList();

  private:
    struct World;
    Cost once(const std::function<void()>& action);
    Cost measure(const std::function<void()>& action);

    std::unique_ptr<World> world_;
    Wire wire_;
};

}  // namespace blattwart::bench
