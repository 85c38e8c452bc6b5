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
};

/// The one in the middle by time.
Cost median(std::vector<Cost> costs);

/// The program on the host behind `host`, with the demonstration's database written into `folder`.
class Session {
  public:
    /// `messages` tells how many have gone over the wire so far.
    Session(
        Automation& host, const std::filesystem::path& folder,
        std::function<int()> messages = [] { return 0; });
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    /// Starts the program: it attaches, fills the tree and the list of the active drawing. First of all,
    /// once.
    Cost start();
    /// A refresh that finds nothing changed, the library root selected.
    Cost refresh();
    /// A click on the tree's first drawing, or on the first layout of this name, until the list is filled.
    Cost clickDrawing();
    Cost clickLayout(std::wstring_view name);

  private:
    struct World;
    Cost once(const std::function<void()>& action);
    Cost measure(const std::function<void()>& action);

    std::unique_ptr<World> world_;
    std::function<int()> messages_;
};

/// Time of one call of the host that does nothing, milliseconds: the median of 200.
double measureEmptyCall(Automation& host);

}  // namespace blattwart::bench
